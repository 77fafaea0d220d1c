#include "app/UpdateOption.h"
#include "base/ApplicationIdentity.h"
#include "tests/support/Patience.h"
#include "tests/support/WebServer.h"

#include <QSettings>
#include <QSignalSpy>

class UpdateOptionTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { setApplicationIdentity(); }
    void init() { QSettings().clear(); }

    void isOffAtFirst()
    {
        QObject window;
        WebServer server;
        const UpdateOption option("updateCheckX", server.url("/list"), &window);
        QVERIFY(!option.isOn());
        QCOMPARE(option.downloadedData(), QByteArray());
        QSettings().setValue("updateCheckX", "");
        QVERIFY(!option.isOn());
        QSettings().setValue("updateCheckX", "yes");
        QVERIFY(option.isOn());
        // Neither has stored anything else.
        QCOMPARE(QSettings().allKeys(), QStringList{"updateCheckX"});
        QCOMPARE(server.acceptedConnections(), 0);
    }

    void downloadsWhenSwitchedOn()
    {
        QObject window;
        WebServer server;
        server.setAnswer("/list", WebAnswer::ok("releases"));
        UpdateOption option("updateCheckX", server.url("/list"), &window);
        const QSignalSpy downloaded(&option, &UpdateOption::downloaded);

        option.set(false);
        QCOMPARE(QSettings().value("updateCheckX"), QVariant("false"));
        option.set(true);
        QCOMPARE(QSettings().value("updateCheckX"), QVariant("true"));
        EVENTUALLY_COMPARE(downloaded.size(), 1);
        QCOMPARE(option.downloadedData(), QByteArray("releases"));

        option.set(false);
        QVERIFY(!option.isOn());
        QCOMPARE(server.targets(), QList<QByteArray>{"/list"});
    }

    void onlyTheLatestDownloadCounts()
    {
        QObject window;
        WebServer server;
        server.setAnswer("/list", WebAnswer::ok("older"));
        UpdateOption option("updateCheckX", server.url("/list"), &window);
        const QSignalSpy downloaded(&option, &UpdateOption::downloaded);
        option.download();
        EVENTUALLY_COMPARE(downloaded.size(), 1);

        server.setAnswer("/list", WebAnswer::held("newer"));
        option.download();
        QCOMPARE(option.downloadedData(), QByteArray());
        EVENTUALLY_COMPARE(server.targets().size(), 2);
        server.proceed();
        EVENTUALLY_COMPARE(downloaded.size(), 2);
        QCOMPARE(option.downloadedData(), QByteArray("newer"));
    }
};

QTEST_GUILESS_MAIN(UpdateOptionTest)
#include "UpdateOptionTest.moc"
