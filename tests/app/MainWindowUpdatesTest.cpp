#include "app/ApplicationIdentity.h"
#include "app/DebugDialog.h"
#include "app/MainWindow.h"
#include "app/MakerAddresses.h"
#include "app/MessageDialog.h"
#include "card/SingleHalconVersionFrame.h"
#include "tests/app/WindowMachine.h"
#include "tests/support/DialogUser.h"
#include "tests/support/Messages.h"
#include "tests/support/RichText.h"
#include "tests/support/WebServer.h"

#include <QTemporaryDir>
#include <QTextBrowser>
#include <QtTest>

#include <algorithm>
#include <memory>

using WindowMachine::click;
using WindowMachine::install;
using WindowMachine::settingsKey;
using WindowMachine::updateCheckCorvanta;
using WindowMachine::updateCheckHalcon;

namespace {

const QString halconBox = "cbUpdateCheckHalcon";
const QString corvantaBox = "cbUpdateCheckCorvanta";
const QByteArray releaseList = "http://www.quorvik.example/halcon-versions.json";
const QByteArray ownRelease = "http://www.quorvik.example/corvanta-for-halcon-version.json";
const QByteArray newProgram =
    R"({"corvanta-for-halcon": {"major": "1", "minor": "9"}, "updateMessage": "<b>%1</b> & more"})";

QByteArray release(const QByteArray &version, const QByteArray &revision, const QByteArray &edition)
{
    return R"({"version": ")" + version + R"(", "revision": ")" + revision +
           R"(", "build": "0", "edition": ")" + edition + R"("})";
}

QByteArray listOf(const QByteArrayList &releases)
{
    return R"({"halcon": [)" + releases.join(",") + "]}";
}

QTextBrowser *details(const MainWindow &window, const QString &version)
{
    for (SingleHalconVersionFrame *card : window.findChildren<SingleHalconVersionFrame *>()) {
        if (card->installation().versionText() == version) {
            return card->findChild<QTextBrowser *>("textBrowser");
        }
    }
    return nullptr;
}

/// What @p html looks like once a browser has taken it in and is asked for it again.
QString digested(const QString &html, const QTextBrowser &alike)
{
    QTextDocument document;
    document.setDefaultFont(alike.document()->defaultFont());
    document.setHtml(html);
    return document.toHtml();
}

/// @p html with the line that tells of the release @p version.
QString withUpdate(const QString &html, const QString &version)
{
    return QString(html).replace(
        "</body>", "Latest version: " + version +
                       " <a href=\"http://www.mvtec.com/download/halcon/\"><span style=\"text-decoration: "
                       "underline; color:#ff0000; font-size:12pt;\"><b>Update available!</b></span></a><br>"
                       "</body>");
}

QList<QByteArray> sorted(QList<QByteArray> targets)
{
    std::sort(targets.begin(), targets.end());
    return targets;
}

} // namespace

Q_DECLARE_METATYPE(WebAnswer)

/// The maker's web server is one on loopback, which the window reaches as the application's proxy.
class MainWindowUpdatesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<WebServer> server;

private slots:
    void initTestCase() { setApplicationIdentity(); }
    void init();
    void cleanup();
    void addresses();
    void firstStartAsksForNothing();
    void storedOptionAsksAtStart_data();
    void storedOptionAsksAtStart();
    void bothOptionsAskAtStart();
    void tickingAsksAtOnce_data();
    void tickingAsksAtOnce();
    void everyTickComparesAnew();
    void untickingLetsADownloadGoOn();
    void cardsTellOfUpdates();
    void comparingAgainAddsNoSecondLine();
    void missingDirectoriesStayMarked();
    void newestComparisonCounts();
    void failuresGoToTheLog_data();
    void failuresGoToTheLog();
    void comparingWithoutADownload();
    void dialogTellsOfANewProgram();
    void oldProgramIsNoNews_data();
    void oldProgramIsNoNews();
    void windowStaysUsable();
    void windowIsClosedDuringADownload();
};

void MainWindowUpdatesTest::init()
{
    WindowMachine::clear();
    install("13.0");
    server = std::make_unique<WebServer>();
    QNetworkProxy::setApplicationProxy(server->asProxy());
}

void MainWindowUpdatesTest::cleanup()
{
    server.reset();
}

void MainWindowUpdatesTest::addresses()
{
    QCOMPARE(MakerAddresses::halconReleaseList().toUtf8(), releaseList);
    QCOMPARE(MakerAddresses::ownRelease().toUtf8(), ownRelease);
    QCOMPARE(MakerAddresses::halconDownloads(), QString("http://www.mvtec.com/download/halcon/"));
}

void MainWindowUpdatesTest::firstStartAsksForNothing()
{
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    // What the start has asked for would be there before what the box asks for.
    click(window, halconBox);
    QTRY_COMPARE(server->targets(), QList<QByteArray>{releaseList});
}

void MainWindowUpdatesTest::storedOptionAsksAtStart_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QByteArray>("target");

    QTest::newRow("HALCON") << updateCheckHalcon << releaseList;
    QTest::newRow("program") << updateCheckCorvanta << ownRelease;
}

void MainWindowUpdatesTest::storedOptionAsksAtStart()
{
    QFETCH(QString, option);
    QFETCH(QByteArray, target);
    Registry::setString(settingsKey, option, "true");
    const LogLines log;
    const MainWindow window;
    QTRY_VERIFY(log.lines().last().startsWith("Could not fetch "));
    QCOMPARE(server->targets(), QList<QByteArray>{target});
}

void MainWindowUpdatesTest::bothOptionsAskAtStart()
{
    Registry::setString(settingsKey, updateCheckHalcon, "true");
    Registry::setString(settingsKey, updateCheckCorvanta, "true");
    const MainWindow window;
    QTRY_COMPARE(sorted(server->targets()), (QList<QByteArray>{ownRelease, releaseList}));
}

void MainWindowUpdatesTest::tickingAsksAtOnce_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QByteArray>("target");

    QTest::newRow("HALCON") << halconBox << releaseList;
    QTest::newRow("program") << corvantaBox << ownRelease;
}

void MainWindowUpdatesTest::tickingAsksAtOnce()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, target);
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    click(window, box);
    QTRY_COMPARE(server->targets(), QList<QByteArray>{target});
    click(window, box);
    click(window, box);
    QTRY_COMPARE(server->targets(), (QList<QByteArray>{target, target}));
}

void MainWindowUpdatesTest::everyTickComparesAnew()
{
    server->setAnswer(releaseList, WebAnswer::held(listOf({release("13.0", "0", "steady")})));
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const LogLines log;
    click(window, halconBox);
    QTRY_COMPARE(server->targets().size(), 1);
    server->setAnswer(releaseList, WebAnswer::ok(listOf({release("13.0", "1", "steady")})));
    click(window, halconBox);
    click(window, halconBox);
    const QString found = "update check found remotely available HALCON version";
    QTRY_COMPARE(log.lines().count(found), 1);
    // The first download ends last, and what the latest one has brought is compared once more.
    server->proceed();
    QTRY_COMPARE(log.lines().count(found), 2);
    QCOMPARE(log.lines().filter("revision"), (QStringList{"  revision: 1", "  revision: 1"}));
}

void MainWindowUpdatesTest::untickingLetsADownloadGoOn()
{
    server->setAnswer(releaseList, WebAnswer::held(listOf({release("13.0", "1", "steady")})));
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    click(window, halconBox);
    QTRY_COMPARE(server->targets().size(), 1);
    click(window, halconBox);
    QCOMPARE(WindowMachine::stored(updateCheckHalcon), QVariant("false"));
    server->proceed();
    QTRY_VERIFY(details(window, "13.0.0")->toPlainText().contains("Update available!"));
}

void MainWindowUpdatesTest::cardsTellOfUpdates()
{
    install("17.12");
    install("20.11");
    install("20.11-Progress");
    install("18.11-Progress");
    server->setAnswer(
        releaseList,
        WebAnswer::ok(listOf({release("13.0", "3", "steady"), release("20.11", "0", "steady"),
                              release("20.11", "2", "progress"), release("18.11", "5", "steady")})));
    Registry::setString(settingsKey, updateCheckHalcon, "true");
    const MainWindow window;
    QMap<QString, QString> before;
    for (const QString version : {"13.0.0", "17.12.0", "20.11.0", "20.11.0 Progress", "18.11.0 Progress"}) {
        before.insert(version, details(window, version)->toHtml());
    }
    const auto now = [&](const QString &version) { return details(window, version)->toHtml(); };
    QTRY_VERIFY(now("20.11.0 Progress") != before.value("20.11.0 Progress"));

    const auto updated = [&](const QString &version, const QString &latest) {
        return digested(withUpdate(before.value(version), latest), *details(window, version));
    };
    QCOMPARE(now("13.0.0"), updated("13.0.0", "13.0.3"));
    QCOMPARE(now("20.11.0 Progress"), updated("20.11.0 Progress", "20.11.2"));
    QCOMPARE(now("20.11.0"), before.value("20.11.0"));
    QCOMPARE(now("17.12.0"), before.value("17.12.0"));
    QCOMPARE(now("18.11.0 Progress"), before.value("18.11.0 Progress"));

    // Kept for each card that a release is published for, newer or not.
    const auto kept = [&](const QString &version) {
        return details(window, version)->property("cachedHtml");
    };
    QCOMPARE(kept("13.0.0"), QVariant(before.value("13.0.0")));
    QCOMPARE(kept("20.11.0"), QVariant(before.value("20.11.0")));
    QCOMPARE(kept("17.12.0"), QVariant());
    QCOMPARE(kept("18.11.0 Progress"), QVariant());
}

void MainWindowUpdatesTest::comparingAgainAddsNoSecondLine()
{
    const QTemporaryDir directory;
    install("13.0", QDir::toNativeSeparators(directory.filePath("a %1 b %2 %3")));
    server->setAnswer(releaseList, WebAnswer::ok(listOf({release("13.0", "1", "steady")})));
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTextBrowser *browser = details(window, "13.0.0");
    const QString before = browser->toHtml();
    QVERIFY(before.contains("a %1 b %2 %3"));
    const QString updated = digested(withUpdate(before, "13.0.1"), *browser);
    const LogLines log;
    for (int comparison = 1; comparison <= 3; ++comparison) {
        click(window, halconBox);
        QTRY_COMPARE(log.lines().count("  version: 13.0"), comparison);
        QCOMPARE(browser->toHtml(), updated);
        click(window, halconBox);
    }
}

void MainWindowUpdatesTest::missingDirectoriesStayMarked()
{
    server->setAnswer(releaseList, WebAnswer::ok(listOf({release("13.0", "1", "steady")})));
    Registry::setString(settingsKey, updateCheckHalcon, "true");
    const MainWindow window;
    const QTextDocument *text = details(window, "13.0.0")->document();
    const QStringList expected{"\"Details:\" bold",
                               "\"\nVersion: \"",
                               "\"13.0.0\" bold",
                               "\"\nInstallDir: C:\\13.0 \"",
                               "\"(not found)\" bold #ff0000",
                               "\"\nExampleRoot: \"",
                               "\"(not found)\" #ff0000",
                               "\"Latest version: 13.0.1 \"",
                               "\"Update available!\" bold underlined #ff0000 -> "
                               "http://www.mvtec.com/download/halcon/",
                               "\"\n\""};
    QTRY_COMPARE(richTextRuns(*text), expected);
}

/// The line goes by the latest list, but a list with nothing newer leaves it as it is.
void MainWindowUpdatesTest::newestComparisonCounts()
{
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTextBrowser *browser = details(window, "13.0.0");
    const QString before = browser->toHtml();
    const LogLines log;
    const auto compareWith = [&](const QByteArray &revision) {
        server->setAnswer(releaseList, WebAnswer::ok(listOf({release("13.0", revision, "steady")})));
        const int sofar = log.lines().count("  version: 13.0");
        click(window, halconBox);
        QTRY_COMPARE(log.lines().count("  version: 13.0"), sofar + 1);
        click(window, halconBox);
    };
    compareWith("0");
    QCOMPARE(browser->toHtml(), before);
    compareWith("1");
    QCOMPARE(browser->toHtml(), digested(withUpdate(before, "13.0.1"), *browser));
    compareWith("2");
    QCOMPARE(browser->toHtml(), digested(withUpdate(before, "13.0.2"), *browser));
    compareWith("0");
    QCOMPARE(browser->toHtml(), digested(withUpdate(before, "13.0.2"), *browser));
}

void MainWindowUpdatesTest::failuresGoToTheLog_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<WebAnswer>("answer");
    QTest::addColumn<QStringList>("lines");

    const QStringList noList{"Could not fetch HALCON versions update information file"};
    const QStringList noProgram{"Could not fetch Corvanta for HALCON version update information file"};
    const auto badList = [](const QString &error) {
        return QStringList{"Could not parse HALCON versions update information file:", error};
    };
    QTest::newRow("list empty") << updateCheckHalcon << WebAnswer::ok({}) << noList;
    QTest::newRow("list missing") << updateCheckHalcon << WebAnswer::whole("404 Not Found", "<html>")
                                  << badList("  illegal value( offset: 1)");
    QTest::newRow("list refused") << updateCheckHalcon << WebAnswer::closed() << noList;
    QTest::newRow("program empty") << updateCheckCorvanta << WebAnswer::ok({}) << noProgram;
    QTest::newRow("program missing")
        << updateCheckCorvanta << WebAnswer::whole("404 Not Found", "<html>")
        << QStringList{"Could not parse Corvanta for HALCON version update information file"};
    QTest::newRow("program refused") << updateCheckCorvanta << WebAnswer::closed() << noProgram;
}

void MainWindowUpdatesTest::failuresGoToTheLog()
{
    QFETCH(QString, option);
    QFETCH(WebAnswer, answer);
    QFETCH(QStringList, lines);
    server->setAnswer(releaseList, answer);
    server->setAnswer(ownRelease, answer);
    Registry::setString(settingsKey, option, "true");
    const MainWindow window;
    const QString before = details(window, "13.0.0")->toHtml();
    const LogLines log;
    QTRY_COMPARE(log.lines(), lines);
    QCOMPARE(details(window, "13.0.0")->toHtml(), before);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(WindowMachine::stored(option), QVariant("true"));
}

void MainWindowUpdatesTest::comparingWithoutADownload()
{
    MainWindow window;
    const LogLines log;
    window.compareVersionsHalcon();
    window.compareVersionCorvanta();
    QCOMPARE(log.lines(),
             (QStringList{"Could not fetch HALCON versions update information file",
                          "Could not fetch Corvanta for HALCON version update information file"}));
}

void MainWindowUpdatesTest::dialogTellsOfANewProgram()
{
    server->setAnswer(ownRelease, WebAnswer::ok(newProgram));
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QString html = "An updated version of Corvanta for HALCON is available for download at<br><br>"
                         "<a href=\"http://www.quorvik.example/\">http://www.quorvik.example/</a><br><br>"
                         "Your current version: 1.8<br>Latest version: 1.9<br><br><b>%1</b> & more<br><br>"
                         "Note: This check can be disabled with the checkbox \"Enable Corvanta for HALCON "
                         "Update Checks\" near "
                         "the bottom of the main screen.";
    const LogLines log;
    DialogUser<MessageDialog> user([](MessageDialog &dialog) {
        QCOMPARE(dialog.windowTitle(), QString("Update available for Corvanta for HALCON"));
        QVERIFY(dialog.parentWidget() == nullptr);
        QCOMPARE(dialog.windowModality(), Qt::ApplicationModal);
        QCOMPARE(dialog.findChild<QTextBrowser *>()->toPlainText(),
                 QString("An updated version of Corvanta for HALCON is available for download at\n\n"
                         "http://www.quorvik.example/\n\nYour current version: 1.8\nLatest version: 1.9\n\n"
                         "%1 & more\n\nNote: This check can be disabled with the checkbox \"Enable Corvanta "
                         "for HALCON Update Checks\" near the bottom of the main screen."));
        dialog.close();
    });
    click(window, corvantaBox);
    QTRY_VERIFY(user.wasUsed());
    QCOMPARE(log.lines(), QStringList{"MessageDialog: " + html});
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QVERIFY(window.isVisible());
}

void MainWindowUpdatesTest::oldProgramIsNoNews_data()
{
    QTest::addColumn<QByteArray>("version");

    QTest::newRow("the same") << QByteArray(R"("major": "1", "minor": "8")");
    QTest::newRow("an older one") << QByteArray(R"("major": "0", "minor": "99")");
}

void MainWindowUpdatesTest::oldProgramIsNoNews()
{
    QFETCH(QByteArray, version);
    server->setAnswer(ownRelease, WebAnswer::ok("{\"corvanta-for-halcon\": {" + version + "}}"));
    server->setAnswer(releaseList, WebAnswer::held(listOf({release("13.0", "1", "steady")})));
    Registry::setString(settingsKey, updateCheckCorvanta, "true");
    const MainWindow window;
    const LogLines log;
    QTRY_COMPARE(server->targets().size(), 1);
    QTRY_COMPARE(server->openConnections(), 0);
    QTest::qWait(0);
    QCOMPARE(log.lines(), QStringList());
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void MainWindowUpdatesTest::windowStaysUsable()
{
    server->setAnswer(releaseList, WebAnswer::silent());
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    click(window, halconBox);
    QTRY_COMPARE(server->targets().size(), 1);
    QTest::keyClick(&window, Qt::Key_F12);
    QVERIFY(window.findChild<DebugDialog *>()->isVisible());
    click(window, corvantaBox);
    QTRY_COMPARE(server->targets(), (QList<QByteArray>{releaseList, ownRelease}));
    QTRY_COMPARE(server->openConnections(), 1);
}

void MainWindowUpdatesTest::windowIsClosedDuringADownload()
{
    server->setAnswer(releaseList, WebAnswer::silent());
    server->setAnswer(ownRelease, WebAnswer::held(newProgram));
    Registry::setString(settingsKey, updateCheckHalcon, "true");
    Registry::setString(settingsKey, updateCheckCorvanta, "true");
    const LogLines log;
    {
        const MainWindow window;
        QTRY_COMPARE(server->targets().size(), 2);
    }
    const int lines = log.lines().size();
    QTRY_COMPARE(server->openConnections(), 0);
    QCOMPARE(log.lines().size(), lines);
}

QTEST_MAIN(MainWindowUpdatesTest)

#include "MainWindowUpdatesTest.moc"
