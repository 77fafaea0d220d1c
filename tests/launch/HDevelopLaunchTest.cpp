#include "launch/HDevelopLaunch.h"
#include "tests/fakes/ProcessStartFake.h"
#include "tests/support/Installations.h"
#include "tests/support/Rows.h"

#include <QtTest>

class HDevelopLaunchTest : public QObject {
    Q_OBJECT

private slots:
    void init() { ProcessStartFake::reset(); }

    void started_data()
    {
        columns<QString, QString, bool, QString>("installDir", "arch", "xl", "executable");

        row("64-bit", "C:\\H", "x64-win64", false, "C:\\H\\bin\\x64-win64\\hdevelop.exe");
        row("32-bit XL", "C:\\H", "x86-win32", true, "C:\\H\\bin\\x86-win32\\hdevelopxl.exe");
        row("signs are neither quoted nor placeholders", "C:\\%1 %2", "x64-win64", true,
            "C:\\%1 %2\\bin\\x64-win64\\hdevelopxl.exe");
    }

    void started()
    {
        QFETCH(QString, installDir);
        QFETCH(QString, arch);
        QFETCH(bool, xl);
        QStringList errors;

        QVERIFY(startHDevelop(installationIn(installDir, arch), xl, &errors));

        QCOMPARE(ProcessStartFake::starts().size(), 1);
        const ProcessStartFake::Start start = ProcessStartFake::starts().constFirst();
        QTEST(start.executable, "executable");
        QCOMPARE(start.arguments, "");
        QCOMPARE(start.installation.installDir, installDir);
        QCOMPARE(start.installation.arch, arch);
        QCOMPARE(errors, QStringList());
    }

    void failure()
    {
        ProcessStartFake::failWith("CreateProcess failed: no such file");
        QStringList errors{"earlier line"};

        QVERIFY(!startHDevelop(installationIn("C:\\H"), true, &errors));
        QVERIFY(!startHDevelop(installationIn("C:\\H"), false, nullptr));

        QCOMPARE(errors, (QStringList{"earlier line", "CreateProcess failed: no such file"}));
    }
};

QTEST_GUILESS_MAIN(HDevelopLaunchTest)

#include "HDevelopLaunchTest.moc"
