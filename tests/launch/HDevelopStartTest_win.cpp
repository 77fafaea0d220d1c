#include "launch/HDevelopLaunch.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Installations.h"
#include "tests/support/Messages.h"

#include <QTemporaryDir>
#include <QtTest>

class HDevelopStartTest : public QObject {
    Q_OBJECT

private slots:
    void startedWithItsInstallation()
    {
        EchoChild::copyTo(program);
        const EchoChild child;
        const LogLines log;
        QStringList errors;

        QVERIFY2(startHDevelop(installation, false, &errors), qPrintable(errors.join('\n')));

        const EchoRecord found = child.record();
        QCOMPARE(found.executable, program);
        QCOMPARE(found.variable("HALCONROOT"), installation.installDir);
        QCOMPARE(found.variable("HALCONARCH"), installation.arch);
        QVERIFY(found.variable("PATH").startsWith(installation.installDir + "\\bin\\x86sse2-win32;"));
        // The space before the missing arguments stays.
        QCOMPARE(log.lines(), QStringList{"CreateProcess: " + program + " "});
        QCOMPARE(errors, QStringList());
    }

private:
    const QTemporaryDir directory;
    const HalconInstallation installation =
        installationIn(QDir::toNativeSeparators(directory.filePath("HALCON 20.11")), "x86sse2-win32");
    const QString program = installation.installDir + "\\bin\\x86sse2-win32\\hdevelop.exe";
};

QTEST_GUILESS_MAIN(HDevelopStartTest)

#include "HDevelopStartTest_win.moc"
