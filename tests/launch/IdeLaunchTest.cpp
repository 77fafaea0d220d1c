#include "launch/IdeLaunch.h"
#include "tests/fakes/ProcessStartFake.h"
#include "tests/support/Installations.h"
#include "tests/support/Rows.h"

#include <QtTest>

/// What is started as the IDE.
class IdeLaunchTest : public QObject {
    Q_OBJECT

private slots:
    void init() { ProcessStartFake::reset(); }

    void started_data()
    {
        columns<QString>("idePath");

        row("signs are neither quoted nor placeholders", "C:/Program Files (x86)/%1 %PATH%/IDE/devenv.exe");
        row("another IDE than the name says", "C:\\VS\\Common7\\IDE\\wdexpress.exe");
        row("no IDE is tried all the same", "");
    }

    void started()
    {
        QFETCH(QString, idePath);
        visualStudio.idePath = idePath;
        QStringList errors{"earlier line"};

        QVERIFY(startDevEnv(installationIn("C:\\H", "x64-win64", "D:\\E"), visualStudio, &errors));

        QCOMPARE(ProcessStartFake::starts().size(), 1);
        const ProcessStartFake::Start start = ProcessStartFake::starts().constFirst();
        QCOMPARE(start.executable, idePath);
        QCOMPARE(start.arguments, QString());
        QCOMPARE(start.installation.installDir, "C:\\H");
        QCOMPARE(start.installation.exampleRoot, "D:\\E");
        QCOMPARE(errors, QStringList{"earlier line"});
    }

    void failure()
    {
        ProcessStartFake::failWith("CreateProcess failed: no such file");
        QStringList errors{"earlier line"};

        QVERIFY(!startDevEnv(installationIn("C:\\H"), visualStudio, &errors));
        QVERIFY(!startDevEnv(installationIn("C:\\H"), visualStudio, nullptr));

        QCOMPARE(errors, (QStringList{"earlier line", "CreateProcess failed: no such file"}));
    }

private:
    /// Every field has a value.
    VisualStudioVersion visualStudio{"name",
                                     "Visual Studio Community 2022",
                                     "17.4",
                                     "amd64",
                                     "C:\\VS",
                                     "C:\\VS\\VC",
                                     "C:\\VS\\VC\\Auxiliary\\Build\\vcvars64.bat",
                                     "devenv",
                                     "C:/VS/Common7/IDE/devenv.exe",
                                     false};
};

QTEST_GUILESS_MAIN(IdeLaunchTest)

#include "IdeLaunchTest.moc"
