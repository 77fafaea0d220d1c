#include "devenv/VisualStudioDetection.h"
#include "tests/devenv/VisualStudioMachine.h"
#include "tests/devenv/VswhereChild.h"
#include "tests/devenv/VswhereReports.h"
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
        const PlainStudio studio17 =
            reportedStudio(machine.path("VS 17"), "Visual Studio Community 2022", "17.4");
        const VswhereChild child(blockOf(studio17));
        const PlainFindings of14 =
            findingsOf({registeredStudio("Professional", "14.0", machine.path("VS 14"))});
        const PlainFindings of17 = reportedFindings({studio17});
        const CaughtMessages messages;
        const LogLines log;

        const QList<VisualStudioVersion> found = detectVisualStudioVersions();

        QCOMPARE(
            displayNames(found),
            (QStringList{"Visual Studio 17.4 (Visual Studio Community 2022) (x86)",
                         "Visual Studio 17.4 (Visual Studio Community 2022)",
                         "Visual Studio 17.4 (Visual Studio Community 2022) (amd64)",
                         "Visual Studio 14.0 (Professional) (x86)", "Visual Studio 14.0 (Professional)"}));
        QCOMPARE(fieldsOf(found),
                 (QStringList{of17.records[1], of17.records[2], of17.records[0]} + of14.records));
        QCOMPARE(log.lines(), detectionLog(of14.log) + of17.log);
        QCOMPARE(messages.warnings(), QStringList());
    }

    void sameTextFromBoth()
    {
        VisualStudioMachine machine;
        machine.addEdition(Roots::studio64, "15.0", "Community", machine.path("From registry"));
        machine.addFile("From registry/VC/bin/amd64/vcvars64.bat");
        machine.addFile("Reported/VC/Auxiliary/Build/vcvars64.bat");
        machine.addFile("Reported/VC/Auxiliary/Build/vcvars32.bat");
        const VswhereChild child(blockOf(reportedStudio(machine.path("Reported"), "Community", "15.0")));
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
        const PlainStudio studio = reportedStudio("C:\\A", "Community", "17.4");
        const PlainFindings expected = reportedFindings({studio});
        const VswhereChild child(blockOf(studio));
        const LogLines log;
        QCOMPARE(fieldsOf(visualStudioVersions()), expected.records);
        child.setReport(blockOf(reportedStudio("C:\\B", "Professional", "17.5")));
        QCOMPARE(fieldsOf(visualStudioVersions()), expected.records);
        QCOMPARE(log.lines(), detectionLog() + expected.log);
        QCOMPARE(child.runs().size(), 1);
    }
};

QTEST_GUILESS_MAIN(VswhereMergeTest)

#include "VswhereMergeTest_win.moc"
