#include "companions/helper/HelperLine.h"
#include "launch/PermanentSwitch.h"
#include "license/LicenseCopy.h"

#include "tests/companions/helper/WideText.h"
#include "tests/fakes/ElevatedHelperFake.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Below it, a Windows path is just a file name with backslashes, or a file below a directory "C:".
class CurrentDirectory {
public:
    CurrentDirectory()
    {
        if (!directory.isValid() || !QDir::setCurrent(directory.path())) {
            qFatal("no directory: %s", qPrintable(directory.errorString()));
        }
    }
    CurrentDirectory(const CurrentDirectory &) = delete;
    CurrentDirectory &operator=(const CurrentDirectory &) = delete;
    ~CurrentDirectory() { QDir::setCurrent(before); }

    void makeFile(const QString &path) const
    {
        QFile file(path);
        if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QFile::WriteOnly)) {
            qFatal("could not write %s", qPrintable(path));
        }
    }

private:
    QString before = QDir::currentPath();
    QTemporaryDir directory;
};

/// How the helper reads the arguments after its name.
HelperReading readByHelper(const QString &arguments)
{
    return readHelperArguments(
        argumentsOf(L"\"C:\\Program Files\\C & Co\\qz_com_helper.exe\" " + toWide(arguments)));
}

QStringList valuesOf(const HelperRequest &request)
{
    QStringList values;
    for (const EnvironmentAssignment &assignment : request.environment) {
        values.append(fromWide(assignment.name) + '=' + fromWide(assignment.value));
    }
    return values;
}

QStringList librariesOf(const HelperRequest &request)
{
    QStringList libraries;
    for (const std::wstring &library : request.libraries) {
        libraries.append(fromWide(library));
    }
    return libraries;
}

} // namespace

/// The lines that the program itself writes, read by the helper.
class ProgramLineTest : public QObject {
    Q_OBJECT

private slots:
    void permanentSwitch_data();
    void permanentSwitch();
    void licenseCopy_data();
    void licenseCopy();
};

void ProgramLineTest::permanentSwitch_data()
{
    QTest::addColumn<QString>("installDir");
    QTest::addColumn<QString>("exampleRoot");

    QTest::newRow("plain") << "C:\\H"
                           << "D:\\E";
    QTest::newRow("no examples") << "C:\\H"
                                 << "";
    QTest::newRow("spaces") << "C:\\Program Files\\HALCON 20.11"
                            << "C:\\Users\\Public\\My Documents\\E";
    QTest::newRow("ampersands") << "C:\\R&D && more"
                                << "D:\\a & b";
    QTest::newRow("parentheses") << "C:\\Program Files (x86)\\H"
                                 << "D:\\(";
    QTest::newRow("umlauts") << "C:\\Prüfstände\\Größe"
                             << "D:\\Öl";
    QTest::newRow("Chinese") << "C:\\寸法"
                             << "D:\\测量 😀";
    QTest::newRow("backslash at the end") << "C:\\H\\"
                                          << "D:\\E\\";
    QTest::newRow("drive") << "C:\\"
                           << "D:\\";
    QTest::newRow("slashes") << "C:/T/H"
                             << "D:/E";
    QTest::newRow("slash at the end") << "C:/T/H/"
                                      << "D:/E/";
    QTest::newRow("percent signs") << "C:\\100%\\%TEMP%\\%1"
                                   << "%ProgramData%\\%2";
    QTest::newRow("other signs") << "C:\\a=b^c;d,e'f!g~h"
                                 << "D:\\[x]{y}@#$";
    QTest::newRow("options") << "C:\\--x64 --env"
                             << "--copy=";
}

void ProgramLineTest::permanentSwitch()
{
    QFETCH(QString, installDir);
    QFETCH(QString, exampleRoot);
    const CurrentDirectory directory;
    QStringList libraries;
    for (const QString name : {"halconx.dll", "halconxxl.dll", "hdevenginex.dll", "hdevenginexxl.dll"}) {
        libraries.append(installDir + "\\bin\\x64-win64\\" + name);
        directory.makeFile(libraries.constLast());
    }
    HalconInstallation installation(20, 11, 1, 0);
    installation.arch = "x64-win64";
    installation.installDir = installDir;
    installation.setExampleRoot(exampleRoot);

    const QString line = helperArguments(installation, true, true);
    const HelperReading reading = readByHelper(line);

    QVERIFY2(reading.request, qPrintable(line + ": " + fromWide(reading.refusal)));
    QCOMPARE(reading.request->action, HelperAction::setMachine);
    QCOMPARE(valuesOf(*reading.request),
             (QStringList{
                 "HALCONROOT=" + installDir, "HALCONARCH=x64-win64",
                 "HALCONIMAGES=" + (exampleRoot.isEmpty() ? QString() : exampleRoot + "\\examples\\images"),
                 "HALCONEXAMPLES=" + (exampleRoot.isEmpty() ? QString() : exampleRoot + "\\examples")}));
    QVERIFY(reading.request->architecture == LibraryArchitecture::x64);
    QCOMPARE(librariesOf(*reading.request), libraries);

    // A line with only variables ends in a space.
    const HelperReading variables = readByHelper(helperArguments(installation, false, false));
    QVERIFY(variables.request);
    QCOMPARE(valuesOf(*variables.request), valuesOf(*reading.request));
    QVERIFY(!variables.request->architecture);
}

void ProgramLineTest::licenseCopy_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("source");

    QTest::newRow("plain") << "C:\\H\\license\\license.dat"
                           << "C:\\new.dat";
    QTest::newRow("spaces") << "C:\\Program Files\\H 20\\license\\my license.dat"
                            << "D:\\my files\\a b.dat";
    QTest::newRow("ampersands") << "C:\\R&D\\license\\a & b.dat"
                                << "D:\\&&\\&.dat";
    QTest::newRow("parentheses") << "C:\\H (x86)\\license\\license (1).dat"
                                 << "D:\\(\\new (2).dat";
    QTest::newRow("umlauts") << "C:\\Prüfstände\\license\\Größe.dat"
                             << "D:\\Öl\\ü.dat";
    QTest::newRow("Chinese") << "C:\\寸法\\license\\测量.dat"
                             << "D:\\😀.dat";
    QTest::newRow("doubled backslash") << "C:\\H\\\\license\\license.dat"
                                       << "D:\\\\new.dat";
    QTest::newRow("slashes") << "C:/T/H/license/license.dat"
                             << "D:/new.dat";
    QTest::newRow("slashes and backslashes") << "C:\\H/license/license.dat"
                                             << "D:\\a/new.dat";
    QTest::newRow("source on a share") << "C:\\H\\license\\license.dat"
                                       << "\\\\server\\share\\new.dat";
    QTest::newRow("percent signs") << "C:\\100%\\license\\%1 %2.dat"
                                   << "D:\\%TEMP%\\%2.dat";
    QTest::newRow("other signs") << "C:\\a=b^c;d,e'f!g\\license\\--x64.dat"
                                 << "D:\\--copy=[x]{y}@#$";
}

/// The program's own copy fails here, because its target is a directory.
void ProgramLineTest::licenseCopy()
{
    QFETCH(QString, target);
    QFETCH(QString, source);
    const CurrentDirectory directory;
    directory.makeFile(source);
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

QTEST_APPLESS_MAIN(ProgramLineTest)

#include "ProgramLineTest.moc"
