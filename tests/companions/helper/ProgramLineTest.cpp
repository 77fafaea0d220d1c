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

        row("no examples", "C:\\H", "");
        row("backslash at the end", "C:\\H\\", "D:\\E\\");
        row("slash at the end", "C:/T/H/", "D:/E/");
        row("signs", "C:\\R&D (x86)\\a=b^c;d,e'f!g~h", "D:\\100%\\%TEMP%[x]{y}@#$ && --copy=");
        row("not ASCII", "C:\\Größe 寸法", "D:\\测量 😀");
    }

    void permanentSwitch()
    {
        QFETCH(QString, installDir);
        QFETCH(QString, exampleRoot);
        const Directory directory;
        for (const QString name : {"halconx.dll", "halconxxl.dll", "hdevenginex.dll", "hdevenginexxl.dll"}) {
            Directory::makeFile(installDir + "\\bin\\x64-win64\\" + name);
        }
        const HalconInstallation installation = installationIn(installDir, "x64-win64", exampleRoot);

        for (const bool registering : {true, false}) {
            const QString line = helperArguments(installation, registering, registering);
            QCOMPARE(line.count(".dll"), registering ? 4 : 0);
            QCOMPARE(printed(readByHelper(line)), line);
        }
    }

    void licenseCopy_data()
    {
        columns<QString, QString>("target", "source");

        row("Chinese", "C:\\寸法\\license\\测量.dat", "D:\\😀.dat");
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
        QCOMPARE(printed(readByHelper(line)), line);
        QCOMPARE(line, "--copy=\"" + target + "\" \"" + source + '"');
    }
};

QTEST_APPLESS_MAIN(ProgramLineTest)

#include "ProgramLineTest.moc"
