#include "devenv/VisualStudioDetection.h"
#include "tests/devenv/RecordLines.h"
#include "tests/devenv/VisualStudioMachine.h"
#include "tests/devenv/VswhereReports.h"
#include "tests/support/CurrentDrive.h"
#include "tests/support/Messages.h"

#include <QtTest>

/// Which parts of the reported installations are found on the machine.
class VswhereDetectionTest : public QObject {
    Q_OBJECT

private slots:
    void everyField();
    void filesOfAnInstallation_data();
    void filesOfAnInstallation();
    void olderLayoutIsNotLookedAt();
    void otherIdesAreNotLookedAt();
    void directoryNames_data();
    void directoryNames();
    void pathIsKeptAsReported();
    void ideOfTheFirstSearch();
    void twoInstallations();
    void sameInstallationTwice();
    void logOfAnIncompleteInstallation();
    void nothingReported_data();
    void nothingReported();

private:
    /// A Visual Studio in @p directory of @p machine, with the files that the arguments name.
    static ReportedStudio install(const VisualStudioMachine &machine, const QString &directory, bool ide,
                                  bool script64, bool script32);
};

ReportedStudio VswhereDetectionTest::install(const VisualStudioMachine &machine, const QString &directory,
                                             bool ide, bool script64, bool script32)
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

void VswhereDetectionTest::everyField()
{
    const VisualStudioMachine machine;
    machine.addFile("VS/Common7/IDE/devenv.exe");
    machine.addFile("VS/VC/Auxiliary/Build/vcvars64.bat");
    machine.addFile("VS/VC/Auxiliary/Build/vcvars32.bat");
    const QString dir = machine.path("VS");
    const QString ide = machine.slashPath("VS/Common7/IDE/devenv.exe");
    const QByteArray report = "installationPath: " + dir.toUtf8() +
                              "\r\ninstallationVersion: 16.11.32929.386\r\n"
                              "displayName: Visual Studio Professional 2019\r\n";
    const CaughtMessages messages;
    const LogLines log;

    const QList<VisualStudioVersion> found = parseVswhereReport(report);

    const QString edition = "Visual Studio Professional 2019";
    QCOMPARE(fieldLines(found),
             fieldLines({{"", edition, "16.11", "amd64", dir, dir + "\\VC",
                          dir + "\\VC\\Auxiliary\\Build\\vcvars64.bat", "devenv", ide, false},
                         {"", edition, "16.11", "x86", dir, dir + "\\VC",
                          dir + "\\VC\\Auxiliary\\Build\\vcvars32.bat", "devenv", ide, false},
                         {"", edition, "16.11", "", dir, dir + "\\VC", "", "devenv", ide, false}}));
    const QStringList expectedLog{"installationPath: " + dir,
                                  "installationVersion: 16.11",
                                  "displayName: Visual Studio Professional 2019",
                                  currentDriveRoot() + "Common7/IDE/devenv.exe does NOT exist",
                                  ide + " exists",
                                  dir + "\\VC\\Auxiliary\\Build\\vcvars64.bat found",
                                  dir + "\\VC\\Auxiliary\\Build\\vcvars32.bat found"};
    QCOMPARE(log.lines(), expectedLog);
    QCOMPARE(messages.warnings(), QStringList());
}

void VswhereDetectionTest::filesOfAnInstallation_data()
{
    QTest::addColumn<bool>("ide");
    QTest::addColumn<bool>("script64");
    QTest::addColumn<bool>("script32");
    QTest::addColumn<QStringList>("architectures");

    QTest::newRow("all") << true << true << true << QStringList{"amd64", "x86", ""};
    QTest::newRow("scripts, no IDE") << false << true << true << QStringList{"amd64", "x86", ""};
    QTest::newRow("64-bit script only") << true << true << false << QStringList{"amd64", ""};
    QTest::newRow("32-bit script only") << true << false << true << QStringList{"x86", ""};
    QTest::newRow("IDE only") << true << false << false << QStringList{""};
    QTest::newRow("nothing is left") << false << false << false << QStringList{""};
}

void VswhereDetectionTest::filesOfAnInstallation()
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

/// The directories of before 2017 may still contain scripts.
void VswhereDetectionTest::olderLayoutIsNotLookedAt()
{
    const VisualStudioMachine machine;
    machine.addFile("VS/VC/bin/amd64/vcvars64.bat");
    machine.addFile("VS/VC/bin/vcvars32.bat");
    machine.addFile("VS/VC/Auxiliary/Build/vcvarsall.bat");
    const ReportedStudio studio = install(machine, "VS", false, false, false);
    const LogLines log;
    QCOMPARE(fieldLines(parseVswhereReport(studio.block())), fieldLines(studio.records()));
    QCOMPARE(log.lines(), studio.logLines());
}

void VswhereDetectionTest::otherIdesAreNotLookedAt()
{
    const VisualStudioMachine machine;
    machine.addFile("VS/Common7/IDE/wdexpress.exe");
    machine.addFile("VS/Common7/IDE/vcexpress.exe");
    const ReportedStudio studio = install(machine, "VS", false, false, false);
    const LogLines log;
    QCOMPARE(fieldLines(parseVswhereReport(studio.block())), fieldLines(studio.records()));
    QCOMPARE(log.lines(), studio.logLines());
}

void VswhereDetectionTest::directoryNames_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("spaces") << "Microsoft Visual Studio 2022";
    QTest::newRow("parentheses and ampersand") << "Program Files (x86) & more";
    QTest::newRow("percent signs") << "100%1 %PATH%";
    QTest::newRow("not ASCII") << "Pr\u00fcfung \u691c\u67fb \U0001f52c";
}

void VswhereDetectionTest::directoryNames()
{
    QFETCH(QString, name);
    const VisualStudioMachine machine;
    const ReportedStudio studio = install(machine, name + "/Community", true, true, true);
    const LogLines log;
    QCOMPARE(fieldLines(parseVswhereReport(studio.block())), fieldLines(studio.records()));
    QCOMPARE(log.lines(), studio.logLines());
}

/// Slashes are neither converted nor removed, except in the absolute path of the IDE.
void VswhereDetectionTest::pathIsKeptAsReported()
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
void VswhereDetectionTest::ideOfTheFirstSearch()
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

void VswhereDetectionTest::twoInstallations()
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

    const LogLines otherLog;
    QCOMPARE(fieldLines(parseVswhereReport(second.block() + first.block())),
             fieldLines(second.records() + first.records()));
    QCOMPARE(otherLog.lines(), second.logLines() + first.logLines());
}

void VswhereDetectionTest::sameInstallationTwice()
{
    const VisualStudioMachine machine;
    const ReportedStudio studio = install(machine, "VS", true, true, true);
    QCOMPARE(fieldLines(parseVswhereReport(studio.block() + studio.block())),
             fieldLines(studio.records() + studio.records()));
}

void VswhereDetectionTest::logOfAnIncompleteInstallation()
{
    const VisualStudioMachine machine;
    const ReportedStudio studio = install(machine, "VS", true, true, true);
    const QStringList incomplete{"installationPath: C:\\Other", "displayName: Other"};
    const LogLines log;
    QCOMPARE(fieldLines(parseVswhereReport(studio.block() + incomplete.join('\n').toUtf8())),
             fieldLines(studio.records()));
    QCOMPARE(log.lines(), studio.logLines() + incomplete);

    // The values of an incomplete one are replaced.
    const LogLines otherLog;
    QCOMPARE(fieldLines(parseVswhereReport("installationPath: C:\\Other\n" + studio.block())),
             fieldLines(studio.records()));
    QCOMPARE(otherLog.lines(), QStringList{"installationPath: C:\\Other"} + studio.logLines());
}

void VswhereDetectionTest::nothingReported_data()
{
    QTest::addColumn<QByteArray>("report");
    QTest::addColumn<QStringList>("logLines");

    QTest::newRow("nothing") << QByteArray() << QStringList();
    QTest::newRow("other lines only")
        << QByteArray("Error 0x57: the parameter is incorrect\n") << QStringList();
    QTest::newRow("no version") << QByteArray("installationPath: C:\\A\ndisplayName: A\n")
                                << QStringList{"installationPath: C:\\A", "displayName: A"};
}

void VswhereDetectionTest::nothingReported()
{
    QFETCH(QByteArray, report);
    QFETCH(QStringList, logLines);
    const LogLines log;
    QCOMPARE(fieldLines(parseVswhereReport(report)), QStringList());
    QCOMPARE(log.lines(), logLines);
}

QTEST_GUILESS_MAIN(VswhereDetectionTest)

#include "VswhereDetectionTest_win.moc"
