#include "devenv/VisualStudioDetection.h"
#include "tests/devenv/VisualStudioMachine.h"
#include "tests/devenv/VswhereReports.h"
#include "tests/support/CurrentDrive.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"

#include <QtTest>

/// Which parts of the reported installations are found on the machine.
class VswhereDetectionTest : public QObject {
    Q_OBJECT

private slots:
    void filesOfAnInstallation_data()
    {
        const auto row = columns<QStringList, QString, QStringList>("files", "ide", "names");

        const QString ide = "Common7/IDE/devenv.exe";
        const QString script64 = "VC/Auxiliary/Build/vcvars64.bat";
        const QString script32 = "VC/Auxiliary/Build/vcvars32.bat";
        const QString name = "Visual Studio 17.4 (A)";
        row("all", {ide, script64, script32}, "devenv", {name + " (amd64)", name + " (x86)", name});
        row("64-bit script only", {ide, script64}, "devenv", {name + " (amd64)", name});
        row("32-bit script only", {ide, script32}, "devenv", {name + " (x86)", name});
        row("nothing is left", {}, "", {name});
        row("other IDEs, and the scripts of before 2017",
            {"Common7/IDE/wdexpress.exe", "Common7/IDE/vcexpress.exe", "VC/bin/amd64/vcvars64.bat",
             "VC/bin/vcvars32.bat"},
            "", {name});
    }

    void filesOfAnInstallation()
    {
        QFETCH(QStringList, files);
        QFETCH(QStringList, names);
        const VisualStudioMachine machine;
        for (const QString &file : files) {
            machine.addFile("VS/" + file);
        }
        // Slashes are neither converted nor removed, except in the absolute path of the IDE.
        for (const QString &path : {machine.path("VS"), machine.slashPath("VS") + '/'}) {
            const PlainStudio studio = reportedStudio(path, "A", "17.4");
            const PlainFindings expected = reportedFindings({studio});
            const LogLines log;

            const QList<VisualStudioVersion> found = parseVswhereReport(blockOf(studio));

            QCOMPARE(displayNames(found), names);
            QTEST(found.constFirst().ideName, "ide");
            QCOMPARE(fieldsOf(found), expected.records);
            QCOMPARE(log.lines(), expected.log);
        }
    }

    /// An IDE found before the product directory is known is kept when none is found there.
    void ideOfTheFirstSearch()
    {
        const VisualStudioMachine machine;
        machine.addFile("With/Common7/IDE/devenv.exe");
        const FileOnCurrentDrive ide("Common7/IDE/devenv.exe");

        const QList<VisualStudioVersion> found =
            parseVswhereReport(blockOf(reportedStudio(machine.path("Without"), "A", "17.4")) +
                               blockOf(reportedStudio(machine.path("With"), "B", "17.4")));

        QCOMPARE(displayNames(found), (QStringList{"Visual Studio 17.4 (A)", "Visual Studio 17.4 (B)"}));
        QCOMPARE(found.at(0).ideName, QString("devenv"));
        QCOMPARE(found.at(0).idePath, currentDriveRoot() + "Common7/IDE/devenv.exe");
        QCOMPARE(found.at(1).idePath, machine.slashPath("With/Common7/IDE/devenv.exe"));
    }

    /// Nothing of the first, such as its IDE, may leak into the second; and nothing is sorted.
    void severalInstallations()
    {
        const VisualStudioMachine machine;
        for (const char *file : {"First/Common7/IDE/devenv.exe", "First/VC/Auxiliary/Build/vcvars64.bat",
                                 "Second/VC/Auxiliary/Build/vcvars32.bat"}) {
            machine.addFile(file);
        }
        const PlainStudio first = reportedStudio(machine.path("First"), "B", "16.9");
        const PlainStudio second = reportedStudio(machine.path("Second"), "A", "17.4");
        const PlainFindings expected = reportedFindings({first, second});
        const QStringList incomplete{"installationPath: C:\\Other", "displayName: Other"};
        const LogLines log;

        const QList<VisualStudioVersion> found =
            parseVswhereReport(blockOf(first) + blockOf(second) + incomplete.join('\n').toUtf8());

        QCOMPARE(displayNames(found),
                 (QStringList{"Visual Studio 16.9 (B) (amd64)", "Visual Studio 16.9 (B)",
                              "Visual Studio 17.4 (A) (x86)", "Visual Studio 17.4 (A)"}));
        QCOMPARE(fieldsOf(found), expected.records);
        QCOMPARE(log.lines(), expected.log + incomplete);
    }
};

QTEST_GUILESS_MAIN(VswhereDetectionTest)

#include "VswhereDetectionTest_win.moc"
