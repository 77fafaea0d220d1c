#include "devenv/VisualStudioDetection.h"
#include "devenv/Vswhere.h"
#include "tests/devenv/RecordLines.h"
#include "tests/devenv/VswhereChild.h"
#include "tests/devenv/VswhereReports.h"
#include "tests/support/Messages.h"
#include "tests/support/Patience.h"

#include <QtTest>

Q_DECLARE_METATYPE(VswhereConduct)

namespace {

const QString started = "Trying to detect Visual Studio via vswhere.exe utility (VS2017+)";

/// None of their directories exists; what is found on the machine does not matter here.
const ReportedStudio community{"C:\\Program Files\\VS", "Visual Studio Community 2022", "17.4"};
const ReportedStudio buildTools{"D:\\Pr\u00fcfung \u691c\u67fb", "Visual Studio Build Tools 2019", "16.11"};

/// Longer than the time limit, so that a report that arrives later and is used shows.
constexpr int tooLong = 15000;

/// Changes the environment variable PATH and the current directory until the end.
class SearchPlaces {
public:
    explicit SearchPlaces(const QString &directory) : path(qgetenv("PATH")), current(QDir::currentPath())
    {
        qputenv("PATH", QDir::toNativeSeparators(directory).toLocal8Bit() + ';' + path);
        QDir::setCurrent(directory);
    }
    SearchPlaces(const SearchPlaces &) = delete;
    SearchPlaces &operator=(const SearchPlaces &) = delete;
    ~SearchPlaces()
    {
        qputenv("PATH", path);
        QDir::setCurrent(current);
    }

private:
    QByteArray path;
    QString current;
};

} // namespace

/// vswhere.exe as a process.
class VswhereRunTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void notThere();
    void onlyElsewhere();
    void arguments();
    void reportCounts_data();
    void reportCounts();
    void longReport();
    void nothingReported_data();
    void nothingReported();
    void limit();
    void neverEnds_data();
    void neverEnds();
    void cannotBeStarted_data();
    void cannotBeStarted();
    void runsAtEachCall();
};

/// An aborted test may have left it.
void VswhereRunTest::init()
{
    QVERIFY(VswhereChild::removeFrom(VswhereChild::path()));
}

void VswhereRunTest::notThere()
{
    const CaughtMessages messages;
    const LogLines log;
    QCOMPARE(fieldLines(detectVisualStudioViaVswhere()), QStringList());
    QCOMPARE(log.lines(), QStringList{started});
    QCOMPARE(messages.warnings(), QStringList());
}

void VswhereRunTest::onlyElsewhere()
{
    const VswhereChild child(community.block());
    const QTemporaryDir elsewhere;
    child.moveTo(elsewhere.filePath("vswhere.exe"));
    const SearchPlaces places(elsewhere.path());
    const LogLines log;
    QCOMPARE(fieldLines(detectVisualStudioViaVswhere()), QStringList());
    QCOMPARE(log.lines(), QStringList{started});
    QCOMPARE(child.runs().size(), 0);
}

void VswhereRunTest::arguments()
{
    const VswhereChild child(community.block());
    detectVisualStudioViaVswhere();
    QCOMPARE(child.runs().size(), 1);
    const VswhereRun run = child.runs().constFirst();
    QCOMPARE(run.executable, VswhereChild::path());
    QCOMPARE(run.arguments, (QStringList{"-prerelease", "-all"}));
    QVERIFY(!isRunning(run.processId));
}

void VswhereRunTest::reportCounts_data()
{
    QTest::addColumn<VswhereConduct>("conduct");

    const QByteArray report = community.block() + buildTools.block();
    VswhereConduct conduct;
    conduct.report = report;
    QTest::newRow("plain") << conduct;

    conduct = {};
    conduct.report = "\xef\xbb\xbf" + QByteArray(report).replace('\n', "\r\n");
    QTest::newRow("carriage returns and a byte order mark") << conduct;

    conduct = {};
    conduct.report = report.trimmed();
    QTest::newRow("no line feed at the end") << conduct;

    conduct = {};
    conduct.report = report;
    conduct.exitCode = 1;
    QTest::newRow("exit code") << conduct;

    conduct.exitCode = 0xc0000005;
    QTest::newRow("exit code of a crash") << conduct;

    conduct = {};
    conduct.report = report;
    conduct.errors = QByteArray("installationPath: C:\\Error\ndisplayName: Error\n").repeated(30000);
    QTest::newRow("much on standard error") << conduct;

    conduct = {};
    conduct.report = report;
    conduct.delay = 1000;
    conduct.linger = 1000;
    QTest::newRow("slow") << conduct;
}

void VswhereRunTest::reportCounts()
{
    QFETCH(VswhereConduct, conduct);
    const VswhereChild child(conduct);
    const CaughtMessages messages;
    const LogLines log;
    QCOMPARE(fieldLines(detectVisualStudioViaVswhere()),
             fieldLines(community.records() + buildTools.records()));
    QCOMPARE(log.lines(), QStringList{started} + community.logLines() + buildTools.logLines());
    QCOMPARE(messages.warnings(), QStringList());
    QCOMPARE(child.runs().size(), 1);
}

/// More than a pipe holds: the program only ends if its output is read while it runs.
void VswhereRunTest::longReport()
{
    const QByteArray filler = QByteArray("description: " + QByteArray(1000, 'x') + "\r\n").repeated(1500);
    const VswhereChild child(community.block() + filler + buildTools.block() + filler + community.block());
    const CaughtMessages messages;
    const LogLines log;
    QCOMPARE(fieldLines(detectVisualStudioViaVswhere()),
             fieldLines(community.records() + buildTools.records() + community.records()));
    QCOMPARE(log.lines(),
             QStringList{started} + community.logLines() + buildTools.logLines() + community.logLines());
    QCOMPARE(messages.warnings(), QStringList());
}

void VswhereRunTest::nothingReported_data()
{
    QTest::addColumn<VswhereConduct>("conduct");

    VswhereConduct conduct;
    QTest::newRow("silent") << conduct;

    conduct.exitCode = 87;
    QTest::newRow("silent with an exit code") << conduct;

    conduct = {};
    conduct.errors = community.block();
    QTest::newRow("report on standard error") << conduct;

    conduct = {};
    conduct.report = "Error 0x57: the parameter is incorrect\n";
    QTest::newRow("other lines only") << conduct;
}

void VswhereRunTest::nothingReported()
{
    QFETCH(VswhereConduct, conduct);
    const VswhereChild child(conduct);
    const CaughtMessages messages;
    const LogLines log;
    QCOMPARE(fieldLines(detectVisualStudioViaVswhere()), QStringList());
    QCOMPARE(log.lines(), QStringList{started});
    QCOMPARE(messages.warnings(), QStringList());
    QCOMPARE(child.runs().size(), 1);
}

void VswhereRunTest::limit()
{
    QCOMPARE(vswhereLimitMilliseconds, 5000);
}

void VswhereRunTest::neverEnds_data()
{
    QTest::addColumn<VswhereConduct>("conduct");

    VswhereConduct conduct;
    conduct.report = community.block();
    conduct.delay = tooLong;
    QTest::newRow("before its report") << conduct;

    conduct = {};
    conduct.report = community.block();
    conduct.linger = tooLong;
    QTest::newRow("after a complete report") << conduct;

    // Its standard input stays open and empty.
    conduct = {};
    conduct.report = community.block();
    conduct.readsInput = true;
    QTest::newRow("waiting for input") << conduct;

    conduct = {};
    conduct.report = community.block();
    conduct.repeats = true;
    QTest::newRow("writing on and on") << conduct;
}

void VswhereRunTest::neverEnds()
{
    QFETCH(VswhereConduct, conduct);
    const VswhereChild child(conduct);
    const CaughtMessages messages;
    const LogLines log;
    QCOMPARE(fieldLines(detectVisualStudioViaVswhere()), QStringList());
    QCOMPARE(log.lines(), QStringList{started});
    QCOMPARE(messages.warnings(), QStringList());
    QCOMPARE(child.runs().size(), 1);
    // Proves that a running process would be detected.
    QVERIFY(isRunning(quint32(QCoreApplication::applicationPid())));
    EVENTUALLY_VERIFY(!isRunning(child.runs().constFirst().processId));
}

void VswhereRunTest::cannotBeStarted_data()
{
    QTest::addColumn<QByteArray>("content"); // null for a directory

    QTest::newRow("text file") << QByteArray("no program\n");
    QTest::newRow("text file with a report") << community.block();
    QTest::newRow("empty file") << QByteArray("");
    QTest::newRow("directory") << QByteArray();
}

void VswhereRunTest::cannotBeStarted()
{
    QFETCH(QByteArray, content);
    if (content.isNull()) {
        QVERIFY(QDir().mkdir(VswhereChild::path()));
    } else {
        QFile file(VswhereChild::path());
        QVERIFY(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    }
    const CaughtMessages messages;
    const LogLines log;
    QCOMPARE(vswhereExecutable(), content.isNull() ? QString() : VswhereChild::path());
    QCOMPARE(fieldLines(detectVisualStudioViaVswhere()), QStringList());
    QCOMPARE(log.lines(), QStringList{started});
    QCOMPARE(messages.warnings(), QStringList());
    QVERIFY(VswhereChild::removeFrom(VswhereChild::path()));
}

void VswhereRunTest::runsAtEachCall()
{
    const VswhereChild child(community.block());
    QCOMPARE(fieldLines(detectVisualStudioViaVswhere()), fieldLines(community.records()));
    child.setReport(buildTools.block());
    QCOMPARE(fieldLines(detectVisualStudioViaVswhere()), fieldLines(buildTools.records()));
    QCOMPARE(child.runs().size(), 2);
}

QTEST_GUILESS_MAIN(VswhereRunTest)

#include "VswhereRunTest_win.moc"
