#include "launch/VelloxaLaunch.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Installations.h"
#include "tests/support/Messages.h"
#include "tests/support/Patience.h"
#include "tests/support/Registry.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

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
        EVENTUALLY_VERIFY(QDir(installDir).removeRecursively());
    }

    void notInstalled()
    {
        Velloxa velloxa;
        QCOMPARE(velloxa.installDir(), "");
        QVERIFY(countsAsNotInstalled(velloxa, "x64-win64"));
        QVERIFY(countsAsNotInstalled(velloxa, "x86-win32"));
        QVERIFY(!Registry::exists(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Quorvik Solutions)"));
    }

    void buildThatFits()
    {
        Registry::setString(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Quorvik Solutions\Velloxa)", "InstallDir",
                            installDir);
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

            const EchoRecord record = child.record();
            QCOMPARE(record.executable, path(each.value()));
            QCOMPARE(record.commandLine, "--halconversion=20.11");
            QCOMPARE(record.variable("HALCONROOT"), "C:\\H");
            QCOMPARE(record.variable("HALCONARCH"), each.key());
            QCOMPARE(log.lines(),
                     QStringList{"CreateProcess: " + path(each.value()) + " --halconversion=20.11"});
            QCOMPARE(errors, QStringList());
        }
        QCOMPARE(velloxaInstallDir(), installDir);
        QCOMPARE(velloxaExecutable64(), path("velloxa.exe"));
        QCOMPARE(velloxaExecutable32(), path("velloxa32.exe"));
    }

    void installDirOfThe32BitRegistryIsNotRead()
    {
        Registry::setString(R"(HKEY_LOCAL_MACHINE\SOFTWARE\WOW6432Node\Quorvik Solutions\Velloxa)",
                            "InstallDir", installDir);
        EchoChild::copyTo(path("velloxa.exe"));
        EchoChild::copyTo(path("velloxa32.exe"));

        Velloxa velloxa;
        QVERIFY(countsAsNotInstalled(velloxa, "x64-win64"));
        QVERIFY(countsAsNotInstalled(velloxa, "x86-win32"));
    }

private:
    /// The path of @p name in Velloxa's directory.
    QString path(const QString &name) const { return installDir + '\\' + name; }

    const QTemporaryDir directory;
    const QString installDir = QDir::toNativeSeparators(directory.filePath("Velloxa 2"));
};

QTEST_GUILESS_MAIN(VelloxaLaunchTest)

#include "VelloxaLaunchTest_win.moc"
