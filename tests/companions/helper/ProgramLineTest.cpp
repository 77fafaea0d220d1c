#include "launch/PermanentSwitch.h"
#include "license/LicenseCopy.h"

#include "tests/companions/helper/RequestTexts.h"
#include "tests/fakes/ElevatedHelperFake.h"
#include "tests/support/CurrentDirectory.h"
#include "tests/support/Installations.h"
#include "tests/support/Rows.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// A directory in which a Windows path is just a file name with backslashes, or a file below a directory "C:".
class Directory {
public:
    static void makeFile(const QString &path)
    {
        QFile file(path);
        if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QFile::WriteOnly)) {
            qFatal("could not write %s", qPrintable(path));
        }
    }

private:
    QTemporaryDir directory;
    CurrentDirectory current{directory.path()};
};

} // namespace

/// The lines that the program itself writes, read by the helper.
class ProgramLineTest : public QObject {
    Q_OBJECT

private slots:
    void permanentSwitch_data()
    {
        columns<QString, QString>("installDir", "exampleRoot");

        row("plain", "C:\\H", "D:\\E");
        row("no examples", "C:\\H", "");
        row("backslash at the end", "C:\\H\\", "D:\\E\\");
        row("slashes", "C:/T/H", "D:/E");
        row("slash at the end", "C:/T/H/", "D:/E/");
        row("percent signs", "C:\\100%\\%TEMP%\\%1", "%ProgramData%\\%2");
        row("other signs", "C:\\R&D (x86)\\a=b^c;d,e'f!g~h", "D:\\[x]{y}@#$ && --copy=");
        row("not ASCII", "C:\\Größe 寸法", "D:\\测量 😀");
    }

    void permanentSwitch()
    {
        QFETCH(QString, installDir);
        QFETCH(QString, exampleRoot);
        const Directory directory;
        QStringList libraries;
        for (const QString name : {"halconx.dll", "halconxxl.dll", "hdevenginex.dll", "hdevenginexxl.dll"}) {
            libraries.append(installDir + "\\bin\\x64-win64\\" + name);
            Directory::makeFile(libraries.constLast());
        }
        HalconInstallation installation = installationIn(installDir);
        installation.setExampleRoot(exampleRoot);

        const QString line = helperArguments(installation, true, true);
        const HelperReading reading = readByHelper(line);

        QVERIFY2(reading.request, qPrintable(line + ": " + fromWide(reading.refusal)));
        QCOMPARE(reading.request->action, HelperAction::setMachine);
        QCOMPARE(
            assignmentsOf(*reading.request),
            (QStringList{
                "HALCONROOT=" + installDir, "HALCONARCH=x64-win64",
                "HALCONIMAGES=" + (exampleRoot.isEmpty() ? QString() : exampleRoot + "\\examples\\images"),
                "HALCONEXAMPLES=" + (exampleRoot.isEmpty() ? QString() : exampleRoot + "\\examples")}));
        QVERIFY(reading.request->architecture == LibraryArchitecture::x64);
        QCOMPARE(librariesOf(*reading.request), libraries);

        // A line with only variables ends in a space.
        const HelperReading variables = readByHelper(helperArguments(installation, false, false));
        QVERIFY(variables.request);
        QCOMPARE(assignmentsOf(*variables.request), assignmentsOf(*reading.request));
        QVERIFY(!variables.request->architecture);
    }

    void licenseCopy_data()
    {
        columns<QString, QString>("target", "source");

        row("plain", "C:\\H\\license\\license.dat", "C:\\new.dat");
        row("Chinese", "C:\\寸法\\license\\测量.dat", "D:\\😀.dat");
        row("slashes", "C:/T/H/license/license.dat", "D:/new.dat");
        row("slashes and backslashes", "C:\\H/license/license.dat", "D:\\a/new.dat");
        row("source on a share", "C:\\H\\license\\license.dat", "\\\\server\\share\\new.dat");
        row("percent signs", "C:\\100%\\license\\%1 %2.dat", "D:\\%TEMP%\\%2.dat");
        row("other signs", "C:\\R&D (x86)\\a=b^c;d,e'f!g\\license\\--x64.dat", "D:\\--copy=[x]{y}@#$");
    }

    /// The program's own copy fails here, because its target is a directory.
    void licenseCopy()
    {
        QFETCH(QString, target);
        QFETCH(QString, source);
        const Directory directory;
        Directory::makeFile(source);
        QVERIFY(QDir().mkpath(target));
        ElevatedHelperFake::reset();

        QVERIFY(copyLicenseFile(source, QString(), target, nullptr));

        QCOMPARE(ElevatedHelperFake::starts().size(), 1);
        const QString line = ElevatedHelperFake::starts().constFirst().arguments;
        const HelperReading reading = readByHelper(line);
        QVERIFY2(reading.request, qPrintable(line + ": " + fromWide(reading.refusal)));
        QCOMPARE(reading.request->action, HelperAction::copyLicense);
        QCOMPARE(fromWide(reading.request->destination), target);
        QCOMPARE(fromWide(reading.request->source), source);
    }
};

QTEST_APPLESS_MAIN(ProgramLineTest)

#include "ProgramLineTest.moc"
