#include "launch/VelloxaLaunch.h"
#include "tests/support/CurrentDrive.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Installations.h"
#include "tests/support/Messages.h"
#include "tests/support/Patience.h"
#include "tests/support/Registry.h"
#include "tests/support/SystemErrors.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString velloxaKey = R"(HKEY_LOCAL_MACHINE\SOFTWARE\Quorvik Solutions\Velloxa)";

/// Whether @p velloxa counts as not installed for @p arch: false, no error line and no attempt to start
/// anything.
bool countsAsNotInstalled(Velloxa &velloxa, const QString &arch)
{
    const LogLines log;
    QStringList errors;
    return !startVelloxa(velloxa, installationIn("C:\\H", arch), &errors) && errors.isEmpty() &&
           log.lines().isEmpty();
}

} // namespace

/// Only one case asks the program's Velloxa, which looks its directory up once; the others have their own.
class VelloxaLaunchTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup()
    {
        Registry::removeTree(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Quorvik Solutions)");
        // A running program cannot be removed.
        EVENTUALLY_VERIFY(QDir(directory.filePath("Velloxa 2")).removeRecursively());
    }

    void notInstalled()
    {
        Velloxa velloxa;
        // Where the executables would be if their directory were an empty string.
        const FileOnCurrentDrive root64("velloxa.exe");
        const FileOnCurrentDrive root32("velloxa32.exe");
        QVERIFY(QFileInfo::exists("\\velloxa.exe"));
        QVERIFY(QFileInfo::exists("\\velloxa32.exe"));

        QCOMPARE(velloxa.installDir(), "");
        QCOMPARE(velloxa.executable64(), "");
        QCOMPARE(velloxa.executable32(), "");
        QVERIFY(countsAsNotInstalled(velloxa, "x64-win64"));
        QVERIFY(countsAsNotInstalled(velloxa, "x86sse2-win32"));
        QVERIFY(countsAsNotInstalled(velloxa, "x86-win32"));
        QVERIFY(!startVelloxa(velloxa, installationIn("C:\\H"), nullptr));
        QVERIFY(!Registry::exists(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Quorvik Solutions)"));
    }

    void buildThatFits()
    {
        setInstallDir();
        EchoChild::copyTo(path("velloxa.exe"));
        EchoChild::copyTo(path("velloxa32.exe"));

        const QMap<QString, QString> programs{{"x64-win64", "velloxa.exe"},
                                              {"x86sse2-win32", "velloxa32.exe"}};
        for (auto each = programs.begin(); each != programs.end(); ++each) {
            const EchoChild child;
            const LogLines log;
            QStringList errors;

            QVERIFY2(startVelloxa(installationIn("C:\\H", each.key()), &errors),
                     qPrintable(errors.join('\n')));

            EchoRecord record;
            QVERIFY2(child.waitForRecord(record), qPrintable(each.key()));
            QCOMPARE(record.executable, path(each.value()));
            QCOMPARE(record.commandLine, "--halconversion=20.11");
            QCOMPARE(record.variable("HALCONROOT"), "C:\\H");
            QCOMPARE(record.variable("HALCONARCH"), each.key());
            QCOMPARE(log.lines(),
                     QStringList{"CreateProcess: " + path(each.value()) + " --halconversion=20.11"});
            QCOMPARE(errors, QStringList());
        }
        QCOMPARE(velloxaInstallDir(), QDir::toNativeSeparators(directory.filePath("Velloxa 2")));
        QCOMPARE(velloxaExecutable64(), path("velloxa.exe"));
        QCOMPARE(velloxaExecutable32(), path("velloxa32.exe"));
    }

    void programAppearsLaterAndIsKept()
    {
        setInstallDir();
        Velloxa velloxa;
        QVERIFY(countsAsNotInstalled(velloxa, "x64-win64"));

        // The directory is known from the first use.
        Registry::setString(velloxaKey, "InstallDir", "C:\\elsewhere");
        EchoChild::copyTo(path("velloxa.exe"));
        {
            const EchoChild child;
            QVERIFY(startVelloxa(velloxa, installationIn("C:\\H"), nullptr));
            EchoRecord record;
            QVERIFY(child.waitForRecord(record));
        }

        // A running program cannot be removed.
        QVERIFY(QTest::qWaitFor([this] { return QFile::remove(path("velloxa.exe")); }, patienceMilliseconds));
        QCOMPARE(velloxa.executable64(), path("velloxa.exe"));
        const LogLines log;
        QStringList errors;
        QVERIFY(!startVelloxa(velloxa, installationIn("C:\\H"), &errors));
        QCOMPARE(errors, QStringList{createProcessErrorLine(WindowsError::fileNotFound)});
        QCOMPARE(log.lines(),
                 QStringList{"CreateProcess: " + path("velloxa.exe") + " --halconversion=20.11"});
    }

    void installDirOfThe32BitRegistryIsNotRead()
    {
        Registry::setString(R"(HKEY_LOCAL_MACHINE\SOFTWARE\WOW6432Node\Quorvik Solutions\Velloxa)",
                            "InstallDir", QDir::toNativeSeparators(directory.filePath("Velloxa 2")));
        EchoChild::copyTo(path("velloxa.exe"));
        EchoChild::copyTo(path("velloxa32.exe"));

        Velloxa velloxa;
        QVERIFY(countsAsNotInstalled(velloxa, "x64-win64"));
        QVERIFY(countsAsNotInstalled(velloxa, "x86-win32"));
    }

private:
    /// The path of @p name in Velloxa's directory.
    QString path(const QString &name) const
    {
        return QDir::toNativeSeparators(directory.filePath("Velloxa 2/" + name));
    }

    void setInstallDir() const
    {
        Registry::setString(velloxaKey, "InstallDir",
                            QDir::toNativeSeparators(directory.filePath("Velloxa 2")));
    }

    QTemporaryDir directory;
};

QTEST_GUILESS_MAIN(VelloxaLaunchTest)

#include "VelloxaLaunchTest_win.moc"
