#include "app/DebugDialog.h"
#include "base/ApplicationIdentity.h"
#include "base/MakerAddresses.h"
#include "tests/app/UpdateMachine.h"
#include "tests/support/Messages.h"
#include "tests/support/Rows.h"
#include "tests/support/Shown.h"
#include "update/UpdateCheck.h"

#include <QtTest>

#include <memory>

using WindowMachine::click;
using WindowMachine::settingsKey;
using WindowMachine::updateCheckCorvanta;
using WindowMachine::updateCheckHalcon;

namespace {

/// The signals or slots that @p type itself declares, in order.
QStringList ownMethods(const QMetaObject &type)
{
    QStringList methods;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        methods.append(QString::fromLatin1(type.method(i).methodSignature()));
    }
    return methods;
}

/// Sends every request to one proxy and records the order of the requests.
class RecordingProxies : public QNetworkProxyFactory {
public:
    RecordingProxies(const QNetworkProxy &proxy, QList<QByteArray> *asked) : proxy(proxy), asked(asked) {}

    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery &query) override
    {
        asked->append(query.url().toEncoded());
        return {proxy};
    }

private:
    QNetworkProxy proxy;
    QList<QByteArray> *asked;
};

} // namespace

/// What the window requests, and when.
class MainWindowUpdatesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<UpdateMachine> machine;

    /// Makes a request of its own, and returns the requests that arrived before it.
    QList<QByteArray> askedBefore()
    {
        const QByteArray address = webServer + "/own";
        const UpdateCheck own(QUrl::fromEncoded(address), nullptr);
        QSignalSpy ended(&own, &UpdateCheck::downloaded);
        if (!ended.wait(patienceMilliseconds)) {
            qFatal("no answer to the test's own request");
        }
        QList<QByteArray> targets = machine->server.targets();
        targets.removeOne(address);
        return targets;
    }

private slots:
    void initTestCase() { setApplicationIdentity(); }
    void init() { machine = std::make_unique<UpdateMachine>(); }
    void cleanup() { machine.reset(); }

    void methods()
    {
        QCOMPARE(ownMethods(MainWindow::staticMetaObject),
                 (QStringList{"handleUpdateChangeOptionHalcon(int)", "handleUpdateChangeOptionCorvanta(int)",
                              "compareVersionsHalcon()", "compareVersionCorvanta()"}));
        QCOMPARE(ownMethods(UpdateCheck::staticMetaObject),
                 (QStringList{"downloaded()", "fileDownloaded(QNetworkReply*)"}));
    }

    void firstStartAsksForNothing()
    {
        Shown<MainWindow> window;
        QCOMPARE(askedBefore(), QList<QByteArray>());
        // The test's own.
        QCOMPARE(machine->server.acceptedConnections(), 1);
    }

    void bothOptionsAskAtStartInOrder()
    {
        QList<QByteArray> asked;
        QNetworkProxyFactory::setApplicationProxyFactory(
            new RecordingProxies(machine->server.asProxy(), &asked));
        Registry::setString(settingsKey, updateCheckHalcon, "true");
        Registry::setString(settingsKey, updateCheckCorvanta, "true");
        const MainWindow window;
        EVENTUALLY_COMPARE(machine->server.targets().size(), 2);
        QCOMPARE(asked, (QList<QByteArray>{releaseList, ownRelease}));
        QNetworkProxy::setApplicationProxy(machine->server.asProxy());
    }

    void tickingAsksAtOnce_data()
    {
        columns<QString, QByteArray>("box", "target");

        row("HALCON", halconBox, releaseList);
        row("program", corvantaBox, ownRelease);
    }

    void tickingAsksAtOnce()
    {
        QFETCH(QString, box);
        QFETCH(QByteArray, target);
        Shown<MainWindow> window;
        click(window, box);
        EVENTUALLY_COMPARE(machine->server.targets(), QList<QByteArray>{target});
        click(window, box);
        click(window, box);
        EVENTUALLY_COMPARE(machine->server.targets(), (QList<QByteArray>{target, target}));
    }

    void onlyCheckedAsks()
    {
        MainWindow window;
        window.handleUpdateChangeOptionHalcon(Qt::PartiallyChecked);
        window.handleUpdateChangeOptionCorvanta(Qt::PartiallyChecked);
        QCOMPARE(WindowMachine::stored(updateCheckHalcon), QVariant("false"));
        QCOMPARE(WindowMachine::stored(updateCheckCorvanta), QVariant("false"));
        QCOMPARE(askedBefore(), QList<QByteArray>());
    }

    void everyTickComparesAnew()
    {
        machine->server.setAnswer(releaseList, WebAnswer::held(listOf({release("13.0", "0", "steady")})));
        Shown<MainWindow> window;
        const LogLines log;
        click(window, halconBox);
        EVENTUALLY_COMPARE(machine->server.targets().size(), 1);
        machine->server.setAnswer(releaseList, WebAnswer::ok(listOf({release("13.0", "1", "steady")})));
        click(window, halconBox);
        click(window, halconBox);
        const QString found = "update check found remotely available HALCON version";
        EVENTUALLY_COMPARE(log.lines().count(found), 1);
        // The first download ends last, and the result of the latest one is compared once more.
        machine->server.proceed();
        EVENTUALLY_COMPARE(log.lines().count(found), 2);
        QCOMPARE(log.lines().filter("revision"), (QStringList{"  revision: 1", "  revision: 1"}));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(window.findChildren<UpdateCheck *>(QString(), Qt::FindDirectChildrenOnly).size(), 2);
    }

    void untickingLetsADownloadGoOn()
    {
        machine->server.setAnswer(releaseList, WebAnswer::held(listOf({release("13.0", "1", "steady")})));
        Shown<MainWindow> window;
        click(window, halconBox);
        EVENTUALLY_COMPARE(machine->server.targets().size(), 1);
        click(window, halconBox);
        QCOMPARE(WindowMachine::stored(updateCheckHalcon), QVariant("false"));
        machine->server.proceed();
        EVENTUALLY_VERIFY(details(window, "13.0.0")->toPlainText().contains("Update available!"));
    }

    void windowStaysUsable()
    {
        machine->server.setAnswer(releaseList, WebAnswer::silent());
        Shown<MainWindow> window;
        click(window, halconBox);
        EVENTUALLY_COMPARE(machine->server.targets().size(), 1);
        QTest::keyClick(&window, Qt::Key_F12);
        QVERIFY(window.findChild<DebugDialog *>()->isVisible());
        click(window, corvantaBox);
        EVENTUALLY_COMPARE(machine->server.targets(), (QList<QByteArray>{releaseList, ownRelease}));
        EVENTUALLY_COMPARE(machine->server.openConnections(), 1);
    }

    void windowIsClosedDuringADownload()
    {
        machine->server.setAnswer(releaseList, WebAnswer::silent());
        machine->server.setAnswer(ownRelease, WebAnswer::held("{}"));
        Registry::setString(settingsKey, updateCheckHalcon, "true");
        Registry::setString(settingsKey, updateCheckCorvanta, "true");
        const LogLines log;
        {
            const MainWindow window;
            EVENTUALLY_COMPARE(machine->server.targets().size(), 2);
        }
        const int lines = log.lines().size();
        EVENTUALLY_COMPARE(machine->server.openConnections(), 0);
        QCOMPARE(log.lines().size(), lines);
    }
};

QTEST_MAIN(MainWindowUpdatesTest)
#include "MainWindowUpdatesTest.moc"
