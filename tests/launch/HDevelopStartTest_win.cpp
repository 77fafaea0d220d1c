#include "launch/HDevelopLaunch.h"
#include "tests/support/EchoChild.h"
#include "tests/support/Messages.h"
#include "tests/support/SystemErrors.h"

#include <QTemporaryDir>
#include <QtTest>

class HDevelopStartTest : public QObject {
    Q_OBJECT

private slots:
    void started_data();
    void started();
    void missingXl();
};

namespace {

/// An installation in @p directory, with no program in it yet.
HalconInstallation installationIn(const QTemporaryDir &directory, const QString &arch)
{
    HalconInstallation result(20, 11, 1, 3);
    result.installDir = QDir::toNativeSeparators(directory.filePath("HALCON 20.11"));
    result.arch = arch;
    return result;
}

} // namespace

void HDevelopStartTest::started_data()
{
    QTest::addColumn<QString>("arch");
    QTest::addColumn<bool>("xl");
    QTest::addColumn<QString>("program");

    QTest::newRow("HDevelop") << "x64-win64" << false << "\\bin\\x64-win64\\hdevelop.exe";
    QTest::newRow("HDevelop XL") << "x64-win64" << true << "\\bin\\x64-win64\\hdevelopxl.exe";
    QTest::newRow("HDevelop of another architecture")
        << "x86sse2-win32" << false << "\\bin\\x86sse2-win32\\hdevelop.exe";
}

void HDevelopStartTest::started()
{
    QFETCH(QString, arch);
    QFETCH(bool, xl);
    QFETCH(QString, program);
    const QTemporaryDir directory;
    const HalconInstallation record = installationIn(directory, arch);
    for (const QString &each : QStringList{"x64-win64", "x86sse2-win32"}) {
        EchoChild::copyTo(record.installDir + "\\bin\\" + each + "\\hdevelop.exe");
        EchoChild::copyTo(record.installDir + "\\bin\\" + each + "\\hdevelopxl.exe");
    }
    const EchoChild child;
    const LogLines log;
    QStringList errors;

    QVERIFY2(startHDevelop(record, xl, &errors), qPrintable(errors.join('\n')));

    EchoRecord found;
    QVERIFY(child.waitForRecord(found));
    QCOMPARE(found.executable, record.installDir + program);
    QCOMPARE(found.variable("HALCONROOT"), record.installDir);
    QCOMPARE(found.variable("HALCONARCH"), arch);
    QVERIFY(found.variable("PATH").startsWith(record.installDir + "\\bin\\" + arch + ';'));
    // The space before the missing arguments stays.
    QCOMPARE(log.lines(), QStringList{"CreateProcess: " + record.installDir + program + " "});
    QCOMPARE(errors, QStringList());
}

void HDevelopStartTest::missingXl()
{
    const QTemporaryDir directory;
    const HalconInstallation record = installationIn(directory, "x64-win64");
    EchoChild::copyTo(record.installDir + "\\bin\\x64-win64\\hdevelop.exe");
    QStringList errors;

    QVERIFY(!startHDevelop(record, true, &errors));

    QCOMPARE(errors, QStringList{createProcessErrorLine(WindowsError::fileNotFound)});
}

QTEST_GUILESS_MAIN(HDevelopStartTest)

#include "HDevelopStartTest_win.moc"
