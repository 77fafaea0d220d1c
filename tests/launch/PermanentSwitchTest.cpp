#include "launch/PermanentSwitch.h"
#include "launch/ElevatedHelper.h"
#include "tests/fakes/ElevatedHelperFake.h"
#include "tests/fakes/ProcessStartFake.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Without files, so that a requested registration finds no library.
HalconInstallation installation()
{
    HalconInstallation result(20, 11, 1, 0);
    result.arch = "x64-win64";
    result.installDir = "C:\\H";
    result.setExampleRoot("D:\\Examples");
    return result;
}

const QString arguments = R"(--env HALCONROOT="C:\H" --env HALCONARCH="x64-win64" )"
                          R"(--env HALCONIMAGES="D:\Examples\examples\images" )"
                          R"(--env HALCONEXAMPLES="D:\Examples\examples" )";

/// The variables have no value here, as there is no registry.
QStringList plannedLines(const QString &helperArguments)
{
    return {
        "changing environment variable HALCONROOT (scope: user) from\n  to\n C:\\H (scope: system)",
        "changing environment variable HALCONARCH (scope: user) from\n  to\n x64-win64 (scope: system)",
        "changing environment variable HALCONIMAGES (scope: user) from\n  to\n"
        " D:\\Examples\\examples\\images (scope: system)",
        "changing environment variable HALCONEXAMPLES (scope: user) from\n  to\n"
        " D:\\Examples\\examples (scope: system)",
        "executing helper process with elevated rights: " + helperExecutablePath() + " " + helperArguments,
    };
}

const QString broadcastLine = "broadcast environment updated message (WM_SETTINGCHANGE)";

} // namespace

class PermanentSwitchTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void helperIsBesideTheProgram();
    void dryRunDoesNothing();
    void run_data();
    void run();
    void runWithoutAList();
    void checkBoxesReachTheHelper_data();
    void checkBoxesReachTheHelper();
    void eachCheckBoxHasItsLibraries();
};

void PermanentSwitchTest::init()
{
    ElevatedHelperFake::reset();
    ProcessStartFake::reset();
}

void PermanentSwitchTest::helperIsBesideTheProgram()
{
    QCOMPARE(helperExecutablePath(), QCoreApplication::applicationDirPath() + "\\qz_com_helper.exe");
}

void PermanentSwitchTest::dryRunDoesNothing()
{
    // Both would fail if they were done.
    ElevatedHelperFake::setOutcome(3, false);
    QStringList lines{"earlier line"};

    QVERIFY(permanentSwitch(installation(), false, false, false, &lines));

    QCOMPARE(lines, QStringList{"earlier line"} + plannedLines(arguments) + QStringList{broadcastLine});
    QCOMPARE(ElevatedHelperFake::starts().size(), 0);
    QCOMPARE(ElevatedHelperFake::broadcasts(), 0);
    QVERIFY(permanentSwitch(installation(), false, true, true, nullptr));
    QCOMPARE(ElevatedHelperFake::starts().size(), 0);
    QCOMPARE(ElevatedHelperFake::broadcasts(), 0);
}

void PermanentSwitchTest::run_data()
{
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<bool>("broadcastSucceeds");
    QTest::addColumn<bool>("succeeds");
    QTest::addColumn<QStringList>("said"); // after the plan

    const QString failed = "helper process returned with value %1. This indicates an error in the execution!";
    const QString broadcastFailed = "Error in broadcasting environment updated message: the window is gone";
    QTest::newRow("success") << 0 << true << true << QStringList{broadcastLine};
    QTest::newRow("helper fails") << 3 << true << false << QStringList{failed.arg(3), broadcastLine};
    QTest::newRow("helper not started") << -1 << true << false << QStringList{failed.arg(-1), broadcastLine};
    QTest::newRow("broadcast fails") << 0 << false << false << QStringList{broadcastLine, broadcastFailed};
    QTest::newRow("both fail") << 1 << false << false
                               << QStringList{failed.arg(1), broadcastLine, broadcastFailed};
}

void PermanentSwitchTest::run()
{
    QFETCH(int, exitCode);
    QFETCH(bool, broadcastSucceeds);
    QFETCH(QStringList, said);
    ElevatedHelperFake::setOutcome(exitCode, broadcastSucceeds);
    // The fake's message for the last Windows error.
    ProcessStartFake::failWith("the window is gone");
    QStringList lines{"earlier line"};

    QTEST(permanentSwitch(installation(), true, false, false, &lines), "succeeds");

    QCOMPARE(lines, QStringList{"earlier line"} + plannedLines(arguments) + said);
    QCOMPARE(ElevatedHelperFake::starts().size(), 1);
    const ElevatedHelperFake::Start &start = ElevatedHelperFake::starts().constFirst();
    QCOMPARE(start.executable, helperExecutablePath());
    QCOMPARE(start.arguments, arguments);
    QVERIFY(start.show);
    QVERIFY(start.wait);
    // Also after a failed helper.
    QCOMPARE(ElevatedHelperFake::broadcasts(), 1);
}

void PermanentSwitchTest::runWithoutAList()
{
    QVERIFY(permanentSwitch(installation(), true, false, false, nullptr));
    QCOMPARE(ElevatedHelperFake::starts().size(), 1);
    QCOMPARE(ElevatedHelperFake::broadcasts(), 1);

    ElevatedHelperFake::setOutcome(3, false);
    QVERIFY(!permanentSwitch(installation(), true, false, false, nullptr));
    QCOMPARE(ElevatedHelperFake::starts().size(), 2);
    QCOMPARE(ElevatedHelperFake::broadcasts(), 2);
}

void PermanentSwitchTest::checkBoxesReachTheHelper_data()
{
    QTest::addColumn<bool>("registerHalconCom");
    QTest::addColumn<bool>("registerEngineCom");
    QTest::addColumn<QString>("expected");

    QTest::newRow("neither") << false << false << arguments;
    QTest::newRow("HALCON COM") << true << false << arguments + "--x64";
    QTest::newRow("engine COM") << false << true << arguments + "--x64";
    QTest::newRow("both") << true << true << arguments + "--x64";
}

void PermanentSwitchTest::checkBoxesReachTheHelper()
{
    QFETCH(bool, registerHalconCom);
    QFETCH(bool, registerEngineCom);
    QFETCH(QString, expected);
    QStringList planned;
    QVERIFY(permanentSwitch(installation(), false, registerHalconCom, registerEngineCom, &planned));
    QStringList done;
    QVERIFY(permanentSwitch(installation(), true, registerHalconCom, registerEngineCom, &done));

    QCOMPARE(planned, plannedLines(expected) + QStringList{broadcastLine});
    // The plan that was shown is carried out.
    QCOMPARE(done, planned);
    QCOMPARE(ElevatedHelperFake::starts().constFirst().arguments, expected);
}

void PermanentSwitchTest::eachCheckBoxHasItsLibraries()
{
    const QTemporaryDir directory;
    HalconInstallation withLibraries = installation();
    withLibraries.installDir = directory.filePath("H");
    for (const char *name : {"halconx.dll", "hdevenginex.dll"}) {
        QFile file(withLibraries.installDir + "\\bin\\x64-win64\\" + name);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QVERIFY(permanentSwitch(withLibraries, true, true, false, nullptr));
    QVERIFY(permanentSwitch(withLibraries, true, false, true, nullptr));

    const auto starts = ElevatedHelperFake::starts();
    QVERIFY(starts[0].arguments.endsWith("halconx.dll\""));
    QVERIFY(!starts[0].arguments.contains("hdevenginex.dll"));
    QVERIFY(starts[1].arguments.endsWith("hdevenginex.dll\""));
    QVERIFY(!starts[1].arguments.contains("halconx.dll"));
}

QTEST_GUILESS_MAIN(PermanentSwitchTest)

#include "PermanentSwitchTest.moc"
