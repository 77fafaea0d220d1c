#include "launch/HDevelopLaunch.h"

#include "tests/fakes/ProcessStartFake.h"

#include <QtTest>

namespace {

HalconInstallation installation(const QString &installDir, const QString &arch)
{
    HalconInstallation result(20, 11, 1, 3);
    result.installDir = installDir;
    result.arch = arch;
    return result;
}

} // namespace

class HDevelopLaunchTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void started_data();
    void started();
    void failure_data();
    void failure();
    void failureWithoutErrorList();
};

void HDevelopLaunchTest::init()
{
    ProcessStartFake::reset();
}

void HDevelopLaunchTest::started_data()
{
    QTest::addColumn<QString>("installDir");
    QTest::addColumn<QString>("arch");
    QTest::addColumn<bool>("xl");
    QTest::addColumn<QString>("executable");

    QTest::newRow("64-bit") << "C:\\H"
                            << "x64-win64" << false << "C:\\H\\bin\\x64-win64\\hdevelop.exe";
    QTest::newRow("64-bit XL") << "C:\\H"
                               << "x64-win64" << true << "C:\\H\\bin\\x64-win64\\hdevelopxl.exe";
    QTest::newRow("SSE2") << "C:\\H"
                          << "x86sse2-win32" << false << "C:\\H\\bin\\x86sse2-win32\\hdevelop.exe";
    QTest::newRow("32-bit XL") << "C:\\H"
                               << "x86-win32" << true << "C:\\H\\bin\\x86-win32\\hdevelopxl.exe";
    QTest::newRow("spaces are not quoted")
        << "C:\\Program Files\\MVTec\\HALCON-20.11"
        << "x64-win64" << false << "C:\\Program Files\\MVTec\\HALCON-20.11\\bin\\x64-win64\\hdevelop.exe";
    QTest::newRow("percent signs are no placeholders")
        << "C:\\%1 %2"
        << "x64-win64" << true << "C:\\%1 %2\\bin\\x64-win64\\hdevelopxl.exe";
}

void HDevelopLaunchTest::started()
{
    QFETCH(QString, installDir);
    QFETCH(QString, arch);
    QFETCH(bool, xl);
    const HalconInstallation record = installation(installDir, arch);
    QStringList errors;

    QVERIFY(startHDevelop(record, xl, &errors));

    QCOMPARE(ProcessStartFake::starts().size(), 1);
    const ProcessStartFake::Start start = ProcessStartFake::starts().constFirst();
    QTEST(start.executable, "executable");
    QCOMPARE(start.arguments, "");
    QCOMPARE(start.installation.versionArchText(), record.versionArchText());
    QCOMPARE(start.installation.installDir, installDir);
    QCOMPARE(errors, QStringList());
}

void HDevelopLaunchTest::failure_data()
{
    QTest::addColumn<bool>("xl");

    QTest::newRow("HDevelop") << false;
    QTest::newRow("HDevelop XL") << true;
}

void HDevelopLaunchTest::failure()
{
    QFETCH(bool, xl);
    ProcessStartFake::failWith("CreateProcess failed: no such file");
    QStringList errors{"earlier line"};

    QVERIFY(!startHDevelop(installation("C:\\H", "x64-win64"), xl, &errors));

    QCOMPARE(errors, (QStringList{"earlier line", "CreateProcess failed: no such file"}));
    QCOMPARE(ProcessStartFake::starts().size(), 1);
}

void HDevelopLaunchTest::failureWithoutErrorList()
{
    ProcessStartFake::failWith("CreateProcess failed: no such file");

    QVERIFY(!startHDevelop(installation("C:\\H", "x64-win64"), false, nullptr));
}

QTEST_GUILESS_MAIN(HDevelopLaunchTest)

#include "HDevelopLaunchTest.moc"
