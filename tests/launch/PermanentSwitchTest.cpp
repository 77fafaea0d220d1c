#include "launch/PermanentSwitch.h"
#include "launch/ElevatedHelper.h"
#include "tests/fakes/ElevatedHelperFake.h"
#include "tests/fakes/ProcessStartFake.h"
#include "tests/support/Installations.h"
#include "tests/support/Rows.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Without files, so that a requested registration finds no library.
const HalconInstallation installation = installationIn("C:\\H", "x64-win64", "D:\\Examples");
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
    void init()
    {
        ElevatedHelperFake::reset();
        ProcessStartFake::reset();
    }

    void helperIsBesideTheProgram()
    {
        QCOMPARE(helperExecutablePath(), QCoreApplication::applicationDirPath() + "\\qz_com_helper.exe");
    }

    void dryRunDoesNothing()
    {
        // Both would fail if they were done.
        ElevatedHelperFake::setOutcome(3, false);
        QStringList lines{"earlier line"};

        QVERIFY(permanentSwitch(installation, false, false, false, &lines));

        QVERIFY(permanentSwitch(installation, false, true, true, nullptr));

        QCOMPARE(lines, QStringList{"earlier line"} + plannedLines(arguments) + QStringList{broadcastLine});
        QCOMPARE(ElevatedHelperFake::starts().size(), 0);
        QCOMPARE(ElevatedHelperFake::broadcasts(), 0);
    }

    void run_data()
    {
        // said: after the plan
        columns<int, bool, bool, QStringList>("exitCode", "broadcastSucceeds", "succeeds", "said");

        const QString failed =
            "helper process returned with value %1. This indicates an error in the execution!";
        const QString broadcastFailed =
            "Error in broadcasting environment updated message: the window is gone";
        row("success", 0, true, true, QStringList{broadcastLine});
        row("helper fails", 3, true, false, QStringList{failed.arg(3), broadcastLine});
        row("helper not started", -1, true, false, QStringList{failed.arg(-1), broadcastLine});
        row("broadcast fails", 0, false, false, QStringList{broadcastLine, broadcastFailed});
        row("both fail", 1, false, false, QStringList{failed.arg(1), broadcastLine, broadcastFailed});
    }

    void run()
    {
        QFETCH(int, exitCode);
        QFETCH(bool, broadcastSucceeds);
        QFETCH(QStringList, said);
        ElevatedHelperFake::setOutcome(exitCode, broadcastSucceeds);
        // The fake's message for the last Windows error.
        ProcessStartFake::failWith("the window is gone");
        QStringList lines{"earlier line"};

        QTEST(permanentSwitch(installation, true, false, false, &lines), "succeeds");

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

    void runWithoutAList()
    {
        QVERIFY(permanentSwitch(installation, true, false, false, nullptr));
        ElevatedHelperFake::setOutcome(3, false);
        QVERIFY(!permanentSwitch(installation, true, false, false, nullptr));
        QCOMPARE(ElevatedHelperFake::starts().size(), 2);
        QCOMPARE(ElevatedHelperFake::broadcasts(), 2);
    }

    void planIsCarriedOut_data()
    {
        columns<bool, bool, QStringList>("registerHalconCom", "registerEngineCom", "libraries");

        row("HALCON COM", true, false, QStringList{"halconx.dll"});
        row("engine COM", false, true, QStringList{"hdevenginex.dll"});
        row("both", true, true, QStringList{"halconx.dll", "hdevenginex.dll"});
    }

    void planIsCarriedOut()
    {
        QFETCH(bool, registerHalconCom);
        QFETCH(bool, registerEngineCom);
        const QTemporaryDir directory;
        const HalconInstallation withLibraries = installationIn(directory.filePath("H"));
        for (const char *name : {"halconx.dll", "hdevenginex.dll"}) {
            QVERIFY(QFile(withLibraries.installDir + "\\bin\\x64-win64\\" + name).open(QFile::WriteOnly));
        }
        QStringList planned;
        QVERIFY(permanentSwitch(withLibraries, false, registerHalconCom, registerEngineCom, &planned));
        QStringList done;
        QVERIFY(permanentSwitch(withLibraries, true, registerHalconCom, registerEngineCom, &done));

        QCOMPARE(done, planned);
        const QString started = ElevatedHelperFake::starts().constFirst().arguments;
        QVERIFY(planned.at(4).endsWith(started));
        QTEST(started.split(QRegularExpression("[\\\\\"]")).filter(".dll"), "libraries");
    }
};

QTEST_GUILESS_MAIN(PermanentSwitchTest)

#include "PermanentSwitchTest.moc"
