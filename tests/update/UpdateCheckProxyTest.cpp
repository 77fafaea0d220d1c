#include "update/UpdateCheck.h"

#include "tests/support/Patience.h"
#include "tests/support/WebServer.h"

#include <QtTest>

namespace {

const char *const address = "http://www.nobody.example/file.json";

} // namespace

Q_DECLARE_METATYPE(QNetworkProxy::ProxyType)
Q_DECLARE_METATYPE(WebAnswer)

/// Downloads on a machine that reaches the network through a proxy.
class UpdateCheckProxyTest : public QObject {
    Q_OBJECT

private slots:
    void request();
    void proxyThatRefuses_data();
    void proxyThatRefuses();
};

void UpdateCheckProxyTest::request()
{
    WebServer server;
    server.setAnswer(address, WebAnswer::ok("contents"));
    const ApplicationProxy proxy(server.asProxy());
    UpdateCheck check(QUrl(address), nullptr);
    QSignalSpy downloaded(&check, &UpdateCheck::downloaded);

    EVENTUALLY_COMPARE(downloaded.count(), 1);

    QCOMPARE(server.requests().size(), 1);
    const WebRequest request = server.requests().constFirst();
    QCOMPARE(request.line, QByteArray("GET http://www.nobody.example/file.json HTTP/1.1"));
    QCOMPARE(request.header("Host"), QByteArray("www.nobody.example"));
    QCOMPARE(check.downloadedData(), QByteArray("contents"));
}

void UpdateCheckProxyTest::proxyThatRefuses_data()
{
    QTest::addColumn<QNetworkProxy::ProxyType>("type");
    QTest::addColumn<WebAnswer>("answer"); // to a request; without one nobody listens
    QTest::addColumn<QByteArray>("data");

    const WebAnswer none;
    QTest::newRow("HTTP, nobody listens") << QNetworkProxy::HttpProxy << none << QByteArray();
    QTest::newRow("SOCKS, nobody listens") << QNetworkProxy::Socks5Proxy << none << QByteArray();
    QTest::newRow("502 with a body") << QNetworkProxy::HttpProxy
                                     << WebAnswer::whole("502 Bad Gateway", "no such host")
                                     << QByteArray("no such host");
    QTest::newRow("407") << QNetworkProxy::HttpProxy
                         << WebAnswer::whole("407 Proxy Authentication Required", {},
                                             {"Proxy-Authenticate: Basic realm=\"x\""})
                         << QByteArray();
}

void UpdateCheckProxyTest::proxyThatRefuses()
{
    QFETCH(QNetworkProxy::ProxyType, type);
    QFETCH(WebAnswer, answer);
    QFETCH(QByteArray, data);
    WebServer server;
    server.setAnswer(address, answer);
    QNetworkProxy proxy = server.asProxy();
    if (answer.pieces.isEmpty()) {
        proxy.setPort(WebServer::closedPort());
    }
    proxy.setType(type);
    const ApplicationProxy applicationProxy(proxy);
    UpdateCheck check(QUrl(address), nullptr);
    QSignalSpy downloaded(&check, &UpdateCheck::downloaded);

    EVENTUALLY_COMPARE(downloaded.count(), 1);
    EVENTUALLY_COMPARE(server.openConnections(), 0);

    QCOMPARE(check.downloadedData(), data);
    QCOMPARE(downloaded.count(), 1);
}

QTEST_GUILESS_MAIN(UpdateCheckProxyTest)
#include "UpdateCheckProxyTest.moc"
