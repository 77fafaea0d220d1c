#include "devenv/VisualStudioDetection.h"
#include "tests/devenv/RecordLines.h"
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
        const auto row =
            columns<bool, bool, bool, QStringList>("ide", "script64", "script32", "architectures");

        row("all", true, true, true, {"amd64", "x86", ""});
        row("64-bit script only", true, true, false, {"amd64", ""});
        row("32-bit script only", true, false, true, {"x86", ""});
        row("nothing is left", false, false, false, {""});
    }

    void filesOfAnInstallation()
    {
        QFETCH(bool, ide);
        QFETCH(bool, script64);
        QFETCH(bool, script32);
        QFETCH(QStringList, architectures);
        const VisualStudioMachine machine;
        const ReportedStudio studio = install(machine, "VS", ide, script64, script32);
        const LogLines log;

        const QList<VisualStudioVersion> found = parseVswhereReport(studio.block());

        QStringList foundArchitectures;
        for (const VisualStudioVersion &each : found) {
            foundArchitectures.append(each.architecture);
        }
        QCOMPARE(foundArchitectures, architectures);
        QCOMPARE(fieldLines(found), fieldLines(studio.records()));
        QCOMPARE(log.lines(), studio.logLines());
    }

    /// Nor are the scripts of before 2017.
    void otherIdesAreNotLookedAt()
    {
        const VisualStudioMachine machine;
        machine.addFile("VS/Common7/IDE/wdexpress.exe");
        machine.addFile("VS/Common7/IDE/vcexpress.exe");
        machine.addFile("VS/VC/bin/amd64/vcvars64.bat");
        machine.addFile("VS/VC/bin/vcvars32.bat");
        const ReportedStudio studio = install(machine, "VS", false, false, false);
        const LogLines log;
        QCOMPARE(fieldLines(parseVswhereReport(studio.block())), fieldLines(studio.records()));
        QCOMPARE(log.lines(), studio.logLines());
    }

    /// Slashes are neither converted nor removed, except in the absolute path of the IDE.
    void pathIsKeptAsReported()
    {
        const VisualStudioMachine machine;
        install(machine, "VS", true, true, false);
        const QString dir = machine.slashPath("VS") + '/';
        const QString ide = machine.slashPath("VS/Common7/IDE/devenv.exe");
        const ReportedStudio reported{dir, "A", "17.4"};
        const LogLines log;

        const QList<VisualStudioVersion> found = parseVswhereReport(reported.block());

        const QString script64 = dir + "\\VC\\Auxiliary\\Build\\vcvars64.bat";
        QCOMPARE(fieldLines(found),
                 fieldLines({{"", "A", "17.4", "amd64", dir, dir + "\\VC", script64, "devenv", ide, false},
                             {"", "A", "17.4", "", dir, dir + "\\VC", "", "devenv", ide, false}}));
        const QStringList expectedLog{"installationPath: " + dir,
                                      "installationVersion: 17.4",
                                      "displayName: A",
                                      currentDriveRoot() + "Common7/IDE/devenv.exe does NOT exist",
                                      ide + " exists",
                                      script64 + " found",
                                      dir + "\\VC\\Auxiliary\\Build\\vcvars32.bat NOT found"};
        QCOMPARE(log.lines(), expectedLog);
    }

    /// An IDE found before the product directory is known is kept when none is found there.
    void ideOfTheFirstSearch()
    {
        const VisualStudioMachine machine;
        const ReportedStudio without = install(machine, "Without", false, false, false);
        const ReportedStudio with = install(machine, "With", true, false, false);
        const FileOnCurrentDrive ide("Common7/IDE/devenv.exe");

        const QList<VisualStudioVersion> found = parseVswhereReport(without.block() + with.block());

        QCOMPARE(found.size(), 2);
        QCOMPARE(found.at(0).productDir, without.path);
        QCOMPARE(found.at(0).ideName, QString("devenv"));
        QCOMPARE(found.at(0).idePath, currentDriveRoot() + "Common7/IDE/devenv.exe");
        QCOMPARE(found.at(1).productDir, with.path);
        QCOMPARE(found.at(1).idePath, machine.slashPath("With/Common7/IDE/devenv.exe"));
    }

    void twoInstallations()
    {
        const VisualStudioMachine machine;
        const ReportedStudio first = install(machine, "First", true, true, true);
        ReportedStudio second = install(machine, "Second", false, false, true);
        second.name = "Visual Studio Build Tools 2019";
        second.version = "16.9";
        const LogLines log;
        // Nothing of the first, such as its IDE, may leak into the second; and nothing is sorted.
        QCOMPARE(fieldLines(parseVswhereReport(first.block() + second.block())),
                 fieldLines(first.records() + second.records()));
        QCOMPARE(log.lines(), first.logLines() + second.logLines());
    }

    void logOfAnIncompleteInstallation()
    {
        const VisualStudioMachine machine;
        const ReportedStudio studio = install(machine, "VS", true, true, true);
        const QStringList incomplete{"installationPath: C:\\Other", "displayName: Other"};
        const LogLines log;
        QCOMPARE(fieldLines(parseVswhereReport(studio.block() + incomplete.join('\n').toUtf8())),
                 fieldLines(studio.records()));
        QCOMPARE(log.lines(), studio.logLines() + incomplete);
    }

private:
    /// A Visual Studio in @p directory of @p machine, with the files that the arguments name.
    static ReportedStudio install(const VisualStudioMachine &machine, const QString &directory, bool ide,
                                  bool script64, bool script32)
    {
        if (ide) {
            machine.addFile(directory + "/Common7/IDE/devenv.exe");
        }
        if (script64) {
            machine.addFile(directory + "/VC/Auxiliary/Build/vcvars64.bat");
        }
        if (script32) {
            machine.addFile(directory + "/VC/Auxiliary/Build/vcvars32.bat");
        }
        return {machine.path(QDir::toNativeSeparators(directory)),
                "Visual Studio Community 2022",
                "17.4",
                ide,
                script64,
                script32};
    }
};

QTEST_GUILESS_MAIN(VswhereDetectionTest)

#include "VswhereDetectionTest_win.moc"
