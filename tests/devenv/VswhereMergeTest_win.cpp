#include "devenv/VisualStudioDetection.h"
#include "tests/devenv/RecordLines.h"
#include "tests/devenv/VisualStudioMachine.h"
#include "tests/devenv/VswhereChild.h"
#include "tests/devenv/VswhereReports.h"
#include "tests/support/CurrentDrive.h"
#include "tests/support/Messages.h"

#include <QtTest>

/// The combined results of the registry and vswhere.exe.
class VswhereMergeTest : public QObject {
    Q_OBJECT

private slots:
    /// An aborted test may have left it.
    void init() { QVERIFY(VswhereChild::removeFrom(VswhereChild::path())); }

    void wholeMachine()
    {
        VisualStudioMachine machine;
        machine.addEdition(Roots::studio32, "14.0", "Professional", machine.path("VS 14"));
        machine.addFile("VS 14/VC/bin/vcvars32.bat");
        machine.addFile("VS 17/Common7/IDE/devenv.exe");
        machine.addFile("VS 17/VC/Auxiliary/Build/vcvars64.bat");
        machine.addFile("VS 17/VC/Auxiliary/Build/vcvars32.bat");
        const ReportedStudio studio17{
            machine.path("VS 17"), "Visual Studio Community 2022", "17.4", true, true, true};
        const VswhereChild child(studio17.block());
        const CaughtMessages messages;
        const LogLines log;

        const QList<VisualStudioVersion> found = detectVisualStudioVersions();

        const QList<VisualStudioVersion> of17 = studio17.records();
        const QString dir14 = machine.path("VS 14");
        const QString script14 = dir14 + "\\VC\\bin\\vcvars32.bat";
        QCOMPARE(
            fieldLines(found),
            fieldLines({of17[1],
                        of17[2],
                        of17[0],
                        {"", "Professional", "14.0", "x86", dir14, dir14 + "\\VC", script14, "", "", false},
                        {"", "Professional", "14.0", "", dir14, dir14 + "\\VC", "", "", "", false}}));
        const QStringList of14{currentDriveRoot() + "Common7/IDE/devenv.exe does NOT exist",
                               machine.slashPath("VS 14/Common7/IDE/devenv.exe does NOT exist"),
                               dir14 + "\\VC\\bin\\amd64\\vcvars64.bat NOT found", script14 + " found"};
        QCOMPARE(log.lines(), detectionLog(of14) + studio17.logLines());
        QCOMPARE(messages.warnings(), QStringList());
    }

    void sameTextFromBoth()
    {
        VisualStudioMachine machine;
        machine.addEdition(Roots::studio64, "15.0", "Community", machine.path("From registry"));
        machine.addFile("From registry/VC/bin/amd64/vcvars64.bat");
        machine.addFile("Reported/VC/Auxiliary/Build/vcvars64.bat");
        machine.addFile("Reported/VC/Auxiliary/Build/vcvars32.bat");
        const VswhereChild child(ReportedStudio{machine.path("Reported"), "Community", "15.0"}.block());
        // Only the reported one has a 32-bit script.
        const QStringList expected{"Visual Studio 15.0 (Community) (x86)", "Visual Studio 15.0 (Community)",
                                   "Visual Studio 15.0 (Community) (amd64)"};
        QCOMPARE(displayNames(detectVisualStudioVersions()), expected);
    }

    /// It removes nothing that the registry names.
    void utilityThatFails()
    {
        VisualStudioMachine machine;
        machine.addEdition(Roots::studio64, "14.0", "Professional", machine.path("VS"));
        QFile file(VswhereChild::path());
        QVERIFY(file.open(QFile::WriteOnly) && file.write("no program\n") > 0);
        file.close();
        const CaughtMessages messages;
        QCOMPARE(displayNames(detectVisualStudioVersions()),
                 QStringList{"Visual Studio 14.0 (Professional)"});
        QCOMPARE(messages.warnings(), QStringList());
        QVERIFY(VswhereChild::removeFrom(VswhereChild::path()));
    }

    /// The only test here that uses the cached list.
    void utilityRunsOncePerProcess()
    {
        const ReportedStudio studio{"C:\\A", "Community", "17.4"};
        const VswhereChild child(studio.block());
        const LogLines log;
        QCOMPARE(fieldLines(visualStudioVersions()), fieldLines(studio.records()));
        QCOMPARE(log.lines(), detectionLog() + studio.logLines());
        child.setReport(ReportedStudio{"C:\\B", "Professional", "17.5"}.block());
        QCOMPARE(fieldLines(visualStudioVersions()), fieldLines(studio.records()));
        QCOMPARE(log.lines(), detectionLog() + studio.logLines());
        QCOMPARE(child.runs().size(), 1);
    }
};

QTEST_GUILESS_MAIN(VswhereMergeTest)

#include "VswhereMergeTest_win.moc"
