#include "launch/VelloxaLaunch.h"
#include "tests/support/CurrentDrive.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Messages.h"
#include "tests/support/Patience.h"
#include "tests/support/Registry.h"
#include "tests/support/SystemErrors.h"

#include <QTemporaryDir>
#include <QtTest>

/// Velloxa is looked up once in a process: each of these cases runs in a process and a registry of its own.
class VelloxaLaunchTest : public QObject {
    Q_OBJECT

private slots:
    void notInstalled();
    void buildThatFits();
    void architectureWithoutBuild();
    void only64BitBuildInstalled();
    void only32BitBuildInstalled();
    void installDirWithoutPrograms();
    void programAppearsLaterAndIsKept();
    void installDirIsReadOnce();
    void installDirIsReadOnceForEachBuild();
    void installDirOfThe32BitRegistryIsNotRead();

private:
    /// The path of @p name in Velloxa's directory.
    QString path(const QString &name) const;
    void setInstallDir() const;

    QTemporaryDir directory;
};

namespace {

const QString velloxaKey = R"(HKEY_LOCAL_MACHINE\SOFTWARE\Quorvik Solutions\Velloxa)";

HalconInstallation installation(int major, int minor, const QString &arch)
{
    HalconInstallation result(major, minor, -1, -1);
    result.installDir = "C:\\H";
    result.arch = arch;
    return result;
}

/// Whether Velloxa counts as not installed for @p arch: false, no error line and no attempt to start
/// anything.
bool countsAsNotInstalled(const QString &arch)
{
    const LogLines log;
    QStringList errors;
    return !startVelloxa(installation(13, 0, arch), &errors) && errors.isEmpty() && log.lines().isEmpty();
}

} // namespace

QString VelloxaLaunchTest::path(const QString &name) const
{
    return QDir::toNativeSeparators(directory.filePath("Velloxa 2/" + name));
}

void VelloxaLaunchTest::setInstallDir() const
{
    Registry::setString(velloxaKey, "InstallDir", QDir::toNativeSeparators(directory.filePath("Velloxa 2")));
}

void VelloxaLaunchTest::notInstalled()
{
    // Where the executables would be if their directory were an empty string.
    const FileOnCurrentDrive root64("velloxa.exe");
    const FileOnCurrentDrive root32("velloxa32.exe");
    QVERIFY(QFileInfo::exists("\\velloxa.exe"));
    QVERIFY(QFileInfo::exists("\\velloxa32.exe"));

    QCOMPARE(velloxaInstallDir(), "");
    QCOMPARE(velloxaExecutable64(), "");
    QCOMPARE(velloxaExecutable32(), "");
    QVERIFY(countsAsNotInstalled("x64-win64"));
    QVERIFY(countsAsNotInstalled("x86sse2-win32"));
    QVERIFY(countsAsNotInstalled("x86-win32"));
    QVERIFY(!startVelloxa(installation(13, 0, "x64-win64"), nullptr));
    QVERIFY(!Registry::exists(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Quorvik Solutions)"));
}

void VelloxaLaunchTest::buildThatFits()
{
    setInstallDir();
    EchoChild::copyTo(path("velloxa.exe"));
    EchoChild::copyTo(path("velloxa32.exe"));

    struct Case {
        int major;
        int minor;
        QString arch;
        QString program;
        QString arguments;
    };
    const QList<Case> cases{
        {13, 0, "x64-win64", "velloxa.exe", "--halconversion=13.0"},
        {12, 0, "x86sse2-win32", "velloxa32.exe", "--halconversion=12.0"},
        {10, 0, "x86-win32", "velloxa32.exe", "--halconversion=10.0"},
        {20, 11, "x64-win64", "velloxa.exe", "--halconversion=20.11"},
        {20, 11, "X64-other", "velloxa.exe", "--halconversion=20.11"},
        {20, 11, "other-X86", "velloxa32.exe", "--halconversion=20.11"},
        {20, 11, "x86-on-x64", "velloxa.exe", "--halconversion=20.11"},
    };
    for (const Case &each : cases) {
        const EchoChild child;
        const LogLines log;
        QStringList errors;

        QVERIFY2(startVelloxa(installation(each.major, each.minor, each.arch), &errors),
                 qPrintable(each.arch + ": " + errors.join('\n')));

        EchoRecord record;
        QVERIFY2(child.waitForRecord(record), qPrintable(each.arch));
        QCOMPARE(record.executable, path(each.program));
        QCOMPARE(record.commandLine, each.arguments);
        QCOMPARE(record.variable("HALCONROOT"), "C:\\H");
        QCOMPARE(record.variable("HALCONARCH"), each.arch);
        QCOMPARE(log.lines(), QStringList{"CreateProcess: " + path(each.program) + ' ' + each.arguments});
        QCOMPARE(errors, QStringList());
    }
    QCOMPARE(velloxaExecutable64(), path("velloxa.exe"));
    QCOMPARE(velloxaExecutable32(), path("velloxa32.exe"));
}

void VelloxaLaunchTest::architectureWithoutBuild()
{
    setInstallDir();
    EchoChild::copyTo(path("velloxa.exe"));
    EchoChild::copyTo(path("velloxa32.exe"));

    QVERIFY(countsAsNotInstalled("arm64-win64"));
    QVERIFY(countsAsNotInstalled("x-64"));
    QVERIFY(countsAsNotInstalled(""));
    // Only their architecture keeps them from starting.
    QCOMPARE(velloxaExecutable64(), path("velloxa.exe"));
    QCOMPARE(velloxaExecutable32(), path("velloxa32.exe"));
}

void VelloxaLaunchTest::only64BitBuildInstalled()
{
    setInstallDir();
    EchoChild::copyTo(path("velloxa.exe"));
    const EchoChild child;

    QVERIFY(countsAsNotInstalled("x86-win32"));
    QVERIFY(countsAsNotInstalled("x86sse2-win32"));
    QVERIFY(startVelloxa(installation(13, 0, "x64-win64"), nullptr));

    EchoRecord record;
    QVERIFY(child.waitForRecord(record));
    QCOMPARE(record.executable, path("velloxa.exe"));
}

void VelloxaLaunchTest::only32BitBuildInstalled()
{
    setInstallDir();
    EchoChild::copyTo(path("velloxa32.exe"));
    const EchoChild child;

    QVERIFY(countsAsNotInstalled("x64-win64"));
    QVERIFY(startVelloxa(installation(13, 0, "x86-win32"), nullptr));

    EchoRecord record;
    QVERIFY(child.waitForRecord(record));
    QCOMPARE(record.executable, path("velloxa32.exe"));
}

void VelloxaLaunchTest::installDirWithoutPrograms()
{
    setInstallDir();

    QCOMPARE(velloxaInstallDir(), QDir::toNativeSeparators(directory.filePath("Velloxa 2")));
    QVERIFY(countsAsNotInstalled("x64-win64"));
    QVERIFY(countsAsNotInstalled("x86-win32"));
}

void VelloxaLaunchTest::programAppearsLaterAndIsKept()
{
    setInstallDir();
    QVERIFY(countsAsNotInstalled("x64-win64"));

    EchoChild::copyTo(path("velloxa.exe"));
    {
        const EchoChild child;
        QVERIFY(startVelloxa(installation(13, 0, "x64-win64"), nullptr));
        EchoRecord record;
        QVERIFY(child.waitForRecord(record));
    }

    // A running program cannot be removed.
    QVERIFY(QTest::qWaitFor([this] { return QFile::remove(path("velloxa.exe")); }, patienceMilliseconds));
    QCOMPARE(velloxaExecutable64(), path("velloxa.exe"));
    const LogLines log;
    QStringList errors;
    QVERIFY(!startVelloxa(installation(13, 0, "x64-win64"), &errors));
    QCOMPARE(errors, QStringList{createProcessErrorLine(WindowsError::fileNotFound)});
    QCOMPARE(log.lines(), QStringList{"CreateProcess: " + path("velloxa.exe") + " --halconversion=13.0"});
}

void VelloxaLaunchTest::installDirIsReadOnce()
{
    const QString missing = QDir::toNativeSeparators(directory.filePath("missing"));
    Registry::setString(velloxaKey, "InstallDir", missing);
    QVERIFY(countsAsNotInstalled("x64-win64"));

    setInstallDir();
    EchoChild::copyTo(path("velloxa.exe"));

    QCOMPARE(velloxaInstallDir(), missing);
    QVERIFY(countsAsNotInstalled("x64-win64"));
}

void VelloxaLaunchTest::installDirIsReadOnceForEachBuild()
{
    QVERIFY(countsAsNotInstalled("x64-win64"));

    setInstallDir();
    EchoChild::copyTo(path("velloxa.exe"));
    EchoChild::copyTo(path("velloxa32.exe"));
    QCOMPARE(velloxaExecutable64(), "");
    QCOMPARE(velloxaExecutable32(), path("velloxa32.exe"));

    Registry::setString(velloxaKey, "InstallDir", "C:\\elsewhere");
    QVERIFY(QFile::remove(path("velloxa32.exe")));
    QCOMPARE(velloxaExecutable32(), path("velloxa32.exe"));
}

void VelloxaLaunchTest::installDirOfThe32BitRegistryIsNotRead()
{
    Registry::setString(R"(HKEY_LOCAL_MACHINE\SOFTWARE\WOW6432Node\Quorvik Solutions\Velloxa)", "InstallDir",
                        QDir::toNativeSeparators(directory.filePath("Velloxa 2")));
    EchoChild::copyTo(path("velloxa.exe"));
    EchoChild::copyTo(path("velloxa32.exe"));

    QVERIFY(countsAsNotInstalled("x64-win64"));
    QVERIFY(countsAsNotInstalled("x86-win32"));
}

QTEST_GUILESS_MAIN(VelloxaLaunchTest)

#include "VelloxaLaunchTest_win.moc"
