#include "app/MessageDialog.h"
#include "base/ApplicationIdentity.h"
#include "tests/app/UpdateMachine.h"
#include "tests/support/DialogUser.h"
#include "tests/support/Messages.h"
#include "tests/support/ProjectVersion.h"
#include "tests/support/Rows.h"
#include "tests/support/Shown.h"
#include "update/OwnRelease.h"
#include "update/UpdateCheck.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using WindowMachine::click;
using WindowMachine::install;
using WindowMachine::settingsKey;
using WindowMachine::updateCheckCorvanta;
using WindowMachine::updateCheckHalcon;

Q_DECLARE_METATYPE(WebAnswer)

namespace {

const QByteArray newProgram =
    R"({"corvanta-for-halcon": {"major": "9999", "minor": "0"}, "updateMessage": "<b>%1</b> & more"})";

/// @p html after a round trip through a text browser.
QString digested(const QString &html, const QTextBrowser &alike)
{
    QTextDocument document;
    document.setDefaultFont(alike.document()->defaultFont());
    document.setHtml(html);
    return document.toHtml();
}

/// @p html with the line that announces the release @p version.
QString withUpdate(const QString &html, const QString &version)
{
    return QString(html).replace(
        "</body>", "Latest version: " + version + " <a href=\"" + MakerAddresses::halconDownloads() +
                       "\"><span style=\"text-decoration: underline; color:#ff0000; font-size:12pt;\">"
                       "<b>Update available!</b></span></a><br></body>");
}

} // namespace

/// How the window shows what it has downloaded.
class MainWindowNewsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<UpdateMachine> machine;

private slots:
    void initTestCase() { setApplicationIdentity(); }
    void init() { machine = std::make_unique<UpdateMachine>(); }
    void cleanup() { machine.reset(); }

    void cardsTellOfUpdates()
    {
        install("17.12");
        install("20.11");
        install("20.11-Progress");
        install("18.11-Progress");
        machine->server.setAnswer(
            releaseList,
            WebAnswer::ok(listOf({release("13.0", "3", "steady"), release("20.11", "0", "steady"),
                                  release("20.11", "2", "progress"), release("18.11", "5", "steady")})));
        Registry::setString(settingsKey, updateCheckHalcon, "true");
        const MainWindow window;
        const QMap<QString, QString> latest{{"13.0.0", "13.0.3"},
                                            {"17.12.0", {}},
                                            {"18.11.0 Progress", {}},
                                            {"20.11.0", {}},
                                            {"20.11.0 Progress", "20.11.2"}};
        QMap<QString, QString> before;
        for (const QString &version : latest.keys()) {
            before.insert(version, details(window, version)->toHtml());
        }
        EVENTUALLY_VERIFY(details(window, "20.11.0 Progress")->toHtml() != before.value("20.11.0 Progress"));

        for (const QString &version : latest.keys()) {
            const QTextBrowser &shown = *details(window, version);
            const QString old = before.value(version);
            const bool isUpdated = !latest.value(version).isEmpty();
            QCOMPARE(shown.toHtml(),
                     isUpdated ? digested(withUpdate(old, latest.value(version)), shown) : old);
            // Kept for each card for which a release is published, newer or not.
            QCOMPARE(shown.property("cachedHtml"),
                     isUpdated || version == "20.11.0" ? QVariant(old) : QVariant());
        }
    }

    void comparingAgainAddsNoSecondLine()
    {
        const QTemporaryDir directory;
        install("13.0", QDir::toNativeSeparators(directory.filePath("a %1 b %2 %3")));
        machine->server.setAnswer(releaseList, WebAnswer::ok(listOf({release("13.0", "1", "steady")})));
        const Shown<MainWindow> window;
        QTextBrowser *browser = details(window, "13.0.0");
        const QString before = browser->toHtml();
        QVERIFY(before.contains("a %1 b %2 %3"));
        const QString updated = digested(withUpdate(before, "13.0.1"), *browser);
        const LogLines log;
        for (int comparison = 1; comparison <= 3; ++comparison) {
            click(window, halconBox);
            EVENTUALLY_COMPARE(log.lines().count("  version: 13.0"), comparison);
            QCOMPARE(browser->toHtml(), updated);
            click(window, halconBox);
        }
    }

    void failuresGoToTheLog_data()
    {
        const auto row = columns<QString, WebAnswer, QStringList>("option", "answer", "lines");

        const WebAnswer missing = WebAnswer::whole("404 Not Found", "<html>");
        row("list missing", updateCheckHalcon, missing,
            {"Could not parse HALCON versions update information file:", "  illegal value( offset: 1)"});
        row("program missing", updateCheckCorvanta, missing,
            {"Could not parse Corvanta for HALCON version update information file"});
    }

    void failuresGoToTheLog()
    {
        QFETCH(QString, option);
        QFETCH(WebAnswer, answer);
        QFETCH(QStringList, lines);
        machine->server.setAnswer(releaseList, answer);
        machine->server.setAnswer(ownRelease, answer);
        Registry::setString(settingsKey, option, "true");
        const MainWindow window;
        const QString before = details(window, "13.0.0")->toHtml();
        const LogLines log;
        EVENTUALLY_COMPARE(log.lines(), lines);
        QCOMPARE(details(window, "13.0.0")->toHtml(), before);
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QCOMPARE(WindowMachine::stored(option), QVariant("true"));
    }

    void comparingWithoutADownload()
    {
        MainWindow window;
        const LogLines log;
        window.compareVersionsHalcon();
        window.compareVersionCorvanta();
        QCOMPARE(log.lines(),
                 (QStringList{"Could not fetch HALCON versions update information file",
                              "Could not fetch Corvanta for HALCON version update information file"}));
    }

    void dialogTellsOfANewProgram()
    {
        machine->server.setAnswer(ownRelease, WebAnswer::ok(newProgram));
        const Shown<MainWindow> window;
        const OwnRelease release{9999, 0, "<b>%1</b> & more"};
        const LogLines log;
        DialogUser<MessageDialog> user([&](MessageDialog &dialog) {
            QCOMPARE(dialog.windowTitle(), QString("Update available for Corvanta for HALCON"));
            QVERIFY(dialog.parentWidget() == nullptr);
            QCOMPARE(dialog.windowModality(), Qt::ApplicationModal);
            const QString text = dialog.findChild<QTextBrowser *>()->toPlainText();
            QVERIFY2(text.contains("\nLatest version: 9999.0\n\n%1 & more\n"), qPrintable(text));
            dialog.close();
        });
        click(window, corvantaBox);
        EVENTUALLY_VERIFY(user.wasUsed());
        QCOMPARE(log.lines(), QStringList{"MessageDialog: " + ownReleaseHtml(release, projectVersion())});
        EVENTUALLY_VERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(window.isVisible());
    }

    void sameProgramIsNoNews()
    {
        machine->server.setAnswer(ownRelease,
                                  WebAnswer::ok(R"({"corvanta-for-halcon": {"major": "1", "minor": "8"}})"));
        Registry::setString(settingsKey, updateCheckCorvanta, "true");
        const MainWindow window;
        const LogLines log;
        // The window receives the signal before the spy.
        QSignalSpy ended(window.findChild<UpdateCheck *>(), &UpdateCheck::downloaded);
        QVERIFY(ended.wait(patienceMilliseconds));
        QCOMPARE(log.lines(), QStringList());
        QVERIFY(QApplication::activeModalWidget() == nullptr);
    }
};

QTEST_MAIN(MainWindowNewsTest)
#include "MainWindowNewsTest.moc"
