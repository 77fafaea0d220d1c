#include "devenv/VisualStudioDetection.h"
#include "devenv/Vswhere.h"
#include "tests/devenv/VswhereChild.h"
#include "tests/devenv/VswhereReports.h"
#include "tests/support/CurrentDirectory.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Messages.h"
#include "tests/support/Patience.h"
#include "tests/support/Rows.h"

#include <QtTest>

Q_DECLARE_METATYPE(VswhereConduct)

namespace {

const QString started = "Trying to detect Visual Studio via vswhere.exe utility (VS2017+)";

/// None of their directories exists; what is found on the machine does not matter here.
const PlainStudio community = reportedStudio("C:\\Program Files\\VS", "Visual Studio Community 2022", "17.4");
const PlainStudio buildTools =
    reportedStudio("D:\\Pr\u00fcfung \u691c\u67fb", "Visual Studio Build Tools 2019", "16.11");

/// Longer than the time limit, so that a report that arrives later and is used shows.
constexpr int tooLong = 15000;

void expect(const QList<PlainStudio> &reported)
{
    const PlainFindings expected = reportedFindings(reported);
    const CaughtMessages messages;
    const LogLines log;
    QCOMPARE(fieldsOf(detectVisualStudioViaVswhere()), expected.records);
    QCOMPARE(log.lines(), QStringList{started} + expected.log);
    QCOMPARE(messages.warnings(), QStringList());
}

void expectNothing()
{
    expect({});
}

} // namespace

/// vswhere.exe as a process.
class VswhereRunTest : public QObject {
    Q_OBJECT

private slots:
    /// An aborted test may have left it.
    void init() { QVERIFY(VswhereChild::removeFrom(VswhereChild::path())); }

    void notThere() { expectNothing(); }

    void onlyElsewhere()
    {
        const VswhereChild child(blockOf(community));
        const QTemporaryDir elsewhere;
        child.moveTo(elsewhere.filePath("vswhere.exe"));
        const EnvironmentVariable path("PATH", QDir::toNativeSeparators(elsewhere.path()).toLocal8Bit() +
                                                   ';' + qgetenv("PATH"));
        const CurrentDirectory current(elsewhere.path());
        expectNothing();
        QCOMPARE(child.runs().size(), 0);
    }

    void arguments()
    {
        const VswhereChild child(blockOf(community));
        detectVisualStudioViaVswhere();
        QCOMPARE(child.runs().size(), 1);
        const VswhereRun run = child.runs().constFirst();
        QCOMPARE(run.executable, VswhereChild::path());
        QCOMPARE(run.arguments, (QStringList{"-prerelease", "-all"}));
        QVERIFY(!isRunning(run.processId));
    }

    void reportCounts_data()
    {
        columns<VswhereConduct>("conduct");

        const QByteArray report = blockOf(community) + blockOf(buildTools);
        row("carriage returns and a byte order mark",
            VswhereConduct{"\xef\xbb\xbf" + QByteArray(report).replace('\n', "\r\n"), {}});
        VswhereConduct crashed{report, {}};
        crashed.exitCode = 0xc0000005;
        row("exit code of a crash", crashed);
        row("much on standard error",
            VswhereConduct{report,
                           QByteArray("installationPath: C:\\Error\ndisplayName: Error\n").repeated(30000)});
        VswhereConduct slow{report, {}};
        slow.delay = 1000;
        slow.linger = 1000;
        row("slow", slow);
    }

    void reportCounts()
    {
        QFETCH(VswhereConduct, conduct);
        const VswhereChild child(conduct);
        expect({community, buildTools});
        QCOMPARE(child.runs().size(), 1);
    }

    /// More than a pipe holds: the program only ends if its output is read while it runs.
    void longReport()
    {
        const QByteArray filler = QByteArray("description: " + QByteArray(1000, 'x') + "\r\n").repeated(1500);
        const VswhereChild child(blockOf(community) + filler + blockOf(buildTools) + filler +
                                 blockOf(community));
        expect({community, buildTools, community});
    }

    void nothingReported_data()
    {
        columns<VswhereConduct>("conduct");

        VswhereConduct silent;
        silent.exitCode = 87;
        row("silent with an exit code", silent);
        row("report on standard error", VswhereConduct{{}, blockOf(community)});
    }

    void nothingReported()
    {
        QFETCH(VswhereConduct, conduct);
        const VswhereChild child(conduct);
        expectNothing();
        QCOMPARE(child.runs().size(), 1);
    }

    void limit() { QCOMPARE(vswhereLimitMilliseconds, 5000); }

    void neverEnds_data()
    {
        columns<VswhereConduct>("conduct");

        VswhereConduct conduct{blockOf(community), {}};
        conduct.linger = tooLong;
        row("after a complete report", conduct);
        // Its standard input stays open and empty.
        conduct = {blockOf(community), {}};
        conduct.readsInput = true;
        row("waiting for input", conduct);
        conduct = {blockOf(community), {}};
        conduct.repeats = true;
        row("writing on and on", conduct);
    }

    void neverEnds()
    {
        QFETCH(VswhereConduct, conduct);
        const VswhereChild child(conduct);
        expectNothing();
        QCOMPARE(child.runs().size(), 1);
        // Proves that a running process would be detected.
        QVERIFY(isRunning(quint32(QCoreApplication::applicationPid())));
        EVENTUALLY_VERIFY(!isRunning(child.runs().constFirst().processId));
    }

    void cannotBeStarted_data()
    {
        // null for a directory
        const auto row = columns<QByteArray>("content");

        row("text file with a report", blockOf(community));
        row("directory", {});
    }

    void cannotBeStarted()
    {
        QFETCH(QByteArray, content);
        if (content.isNull()) {
            QVERIFY(QDir().mkdir(VswhereChild::path()));
        } else {
            QFile file(VswhereChild::path());
            QVERIFY(file.open(QFile::WriteOnly) && file.write(content) == content.size());
        }
        QCOMPARE(vswhereExecutable(), content.isNull() ? QString() : VswhereChild::path());
        expectNothing();
        QVERIFY(VswhereChild::removeFrom(VswhereChild::path()));
    }
};

QTEST_GUILESS_MAIN(VswhereRunTest)

#include "VswhereRunTest_win.moc"
