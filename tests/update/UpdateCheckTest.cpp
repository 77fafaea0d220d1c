#include "update/UpdateCheck.h"

#include "tests/support/Messages.h"
#include "tests/support/Patience.h"
#include "tests/support/Rows.h"
#include "tests/support/WebServer.h"

#include <QNetworkReply>
#include <QPointer>
#include <QtTest>

#include <memory>

namespace {

const char *const path = "/file.json";

/// The bytes of @p answer in @p count pieces of the same size; the last one may be smaller.
WebAnswer inPieces(WebAnswer answer, int count)
{
    const QByteArray bytes = answer.pieces.join();
    const int size = (bytes.size() + count - 1) / count;
    answer.pieces.clear();
    for (int from = 0; from < bytes.size(); from += size) {
        answer.pieces << bytes.mid(from, size);
    }
    return answer;
}

WebAnswer raw(const QList<QByteArray> &pieces)
{
    WebAnswer answer;
    answer.pieces = pieces;
    return answer;
}

/// The start of an answer of 100 MB that never ends.
WebAnswer endless(const QByteArray &header, const QByteArray &body)
{
    WebAnswer answer = inPieces(raw({body}), 20);
    answer.pieces.prepend("HTTP/1.1 200 OK\r\n" + header + "Content-Length: 100000000\r\n\r\n");
    answer.closes = false;
    return answer;
}

/// As a server compresses it with deflate.
QByteArray compressed(const QByteArray &bytes)
{
    // Before the stream Qt writes the size in 4 bytes.
    return qCompress(bytes, 9).mid(4);
}

/// A download, and how often it has ended.
struct Download : UpdateCheck {
    explicit Download(const QUrl &url) : UpdateCheck(url, nullptr), ended(this, &UpdateCheck::downloaded) {}

    QSignalSpy ended;
};

} // namespace

Q_DECLARE_METATYPE(WebAnswer)

class UpdateCheckTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        // Not the building machine's proxy.
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    }

    /// Creating the object starts the request.
    void request()
    {
        WebServer server;
        server.setAnswer("/file.json?a=1&b=%20", WebAnswer::ok("contents"));

        Download check(server.url("/file.json?a=1&b=%20"));
        EVENTUALLY_COMPARE(check.ended.count(), 1);

        QCOMPARE(server.requests().size(), 1);
        const WebRequest request = server.requests().constFirst();
        QCOMPARE(request.line, QByteArray("GET /file.json?a=1&b=%20 HTTP/1.1"));
        // The documentation tells users that these are all headers.
        QStringList names;
        for (const QByteArray &header : request.headers) {
            names.append(header.left(header.indexOf(':')));
        }
        names.sort();
        QCOMPARE(names,
                 (QStringList{"Accept-Encoding", "Accept-Language", "Connection", "Host", "User-Agent"}));
        QCOMPARE(request.header("Host"), server.url(QString()).authority().toUtf8());
        QCOMPARE(request.header("User-Agent"), QByteArray("Mozilla/5.0"));
        QCOMPARE(check.downloadedData(), QByteArray("contents"));
    }

    void throughAProxy()
    {
        WebServer server;
        server.setAnswer("http://www.nobody.example/file.json", WebAnswer::ok("contents"));
        const ApplicationProxy proxy(server.asProxy());
        Download check(QUrl("http://www.nobody.example/file.json"));

        EVENTUALLY_COMPARE(check.ended.count(), 1);

        QCOMPARE(server.targets(), QList<QByteArray>{"http://www.nobody.example/file.json"});
        QCOMPARE(check.downloadedData(), QByteArray("contents"));
    }

    /// Nobody is asked for it: the download fails like any other.
    void proxyThatWantsAPassword()
    {
        WebServer server;
        server.setAnswer("http://www.nobody.example/file.json",
                         WebAnswer::whole("407 Proxy Authentication Required", "who are you",
                                          {"Proxy-Authenticate: Basic realm=\"x\""}));
        const ApplicationProxy proxy(server.asProxy());
        Download check(QUrl("http://www.nobody.example/file.json"));

        EVENTUALLY_COMPARE(check.ended.count(), 1);

        QCOMPARE(server.targets(), QList<QByteArray>{"http://www.nobody.example/file.json"});
        QCOMPARE(check.downloadedData(), QByteArray("who are you"));
    }

    void answers_data()
    {
        const auto row = columns<WebAnswer, QByteArray>("answer", "data");

        const QByteArray json = R"({"halcon": [{"version": "20.11"}]})";
        row("200", WebAnswer::ok(json), json);
        row("200 with every byte", WebAnswer::ok(QByteArray("\0\r\n\r\n\xff\xef\xbb\xbf", 9)),
            QByteArray("\0\r\n\r\n\xff\xef\xbb\xbf", 9));
        row("404 with a body", WebAnswer::whole("404 Not Found", "<html>nothing here</html>"),
            "<html>nothing here</html>");
        row("compressed", WebAnswer::whole("200 OK", compressed(json), {"Content-Encoding: deflate"}), json);
        row("compressed and cut off",
            WebAnswer::whole("200 OK", compressed(json).left(2), {"Content-Encoding: deflate"}), {});
        const QByteArray largest(UpdateCheck::largestBody, ' ');
        row("the largest in a thousand pieces", inPieces(WebAnswer::ok(largest), 1000), largest);
        row("cut half-way", WebAnswer::cutOff("first half, other half"), "first half,");
        row("closed without an answer", WebAnswer::closed(), {});
        row("no HTTP", raw({"220 mail.example ready\r\n\r\nhello"}), {});
        row("redirect, which is not followed",
            WebAnswer::whole("308 Permanent Redirect", "moved", {"Location: /elsewhere"}), "moved");
    }

    void answers()
    {
        QFETCH(WebAnswer, answer);
        QFETCH(QByteArray, data);
        WebServer server;
        server.setAnswer(path, answer);
        Download check(server.url(path));

        EVENTUALLY_COMPARE(check.ended.count(), 1);
        EVENTUALLY_COMPARE(server.openConnections(), 0);

        QVERIFY2(check.downloadedData() == data, check.downloadedData().left(1000));
        QCOMPARE(check.ended.count(), 1);
        QVERIFY(!server.targets().contains("/elsewhere"));
    }

    void nothingToTalkTo_data()
    {
        columns<QUrl>("url");

        row("nobody listens", QUrl(QString("http://127.0.0.1:%1/file.json").arg(WebServer::closedPort())));
        row("no address", QUrl());
        row("no protocol that it knows", QUrl("nobody://127.0.0.1/file.json"));
    }

    void nothingToTalkTo()
    {
        QFETCH(QUrl, url);
        Download check(url);

        // Never from within the constructor: nothing could have been connected by then.
        EVENTUALLY_COMPARE(check.ended.count(), 1);

        QCOMPARE(check.downloadedData(), QByteArray());
    }

    void tooLarge_data()
    {
        columns<WebAnswer>("answer");

        const QByteArray tooMuch(UpdateCheck::largestBody + 1, ' ');
        row("more than the limit", endless({}, tooMuch));
        row("small, but much when decompressed",
            endless("Content-Encoding: deflate\r\n", compressed(tooMuch)));
    }

    /// Such an answer is as good as none: neither its first part nor its end is waited for.
    void tooLarge()
    {
        QFETCH(WebAnswer, answer);
        WebServer server;
        server.setAnswer(path, answer);
        const LogLines log;
        Download check(server.url(path));

        EVENTUALLY_COMPARE(check.ended.count(), 1);

        QCOMPARE(check.downloadedData().size(), 0);
        QCOMPARE(log.lines(), QStringList{"answer of " + server.url(path).toString() +
                                          " is not read: it has more than 16777216 bytes"});
        EVENTUALLY_COMPARE(server.openConnections(), 0);
        QCOMPARE(check.ended.count(), 1);
    }

    void dataComeAllAtOnce()
    {
        WebServer server;
        WebAnswer answer = raw({"HTTP/1.1 200 OK\r\nContent-Length: 8\r\n\r\n", "con", "ten", "ts"});
        answer.when = WebAnswer::When::WhenTold;
        server.setAnswer(path, answer);
        Download check(server.url(path));
        QCOMPARE(check.downloadedData(), QByteArray());
        EVENTUALLY_COMPARE(server.targets(), QList<QByteArray>{path});

        for (int piece = 0; piece < 3; ++piece) {
            server.proceed();
            // When another download has ended, the piece has arrived as well.
            Download other(server.url("/other"));
            EVENTUALLY_COMPARE(other.ended.count(), 1);
            QCOMPARE(check.downloadedData(), QByteArray());
            QCOMPARE(check.ended.count(), 0);
        }
        server.proceed();

        EVENTUALLY_COMPARE(check.ended.count(), 1);
        QCOMPARE(check.downloadedData(), QByteArray("contents"));
    }

    void destroyedWhileUnderWay_data()
    {
        columns<WebAnswer, bool>("answer", "waitsForRequest");

        WebAnswer half = inPieces(WebAnswer::ok("contents"), 2);
        half.closes = false;
        half.pieces.removeLast();
        row("before it has asked", WebAnswer::silent(), false);
        row("before the answer", WebAnswer::silent(), true);
        row("within the answer", half, true);
    }

    /// As when the window is closed during the download.
    void destroyedWhileUnderWay()
    {
        QFETCH(WebAnswer, answer);
        QFETCH(bool, waitsForRequest);
        WebServer server;
        server.setAnswer(path, answer);
        auto parent = std::make_unique<QObject>();
        const QPointer<UpdateCheck> check = new UpdateCheck(server.url(path), parent.get());
        int downloaded = 0;
        connect(check, &UpdateCheck::downloaded, this, [&downloaded] { ++downloaded; });
        if (waitsForRequest) {
            EVENTUALLY_COMPARE(server.targets(), QList<QByteArray>{path});
            QCoreApplication::processEvents();
        }

        parent.reset();

        QVERIFY(check.isNull());
        // The server sees the connection's end after everything else that was sent.
        UpdateCheck next(server.url("/next"), nullptr);
        EVENTUALLY_VERIFY(server.targets().contains("/next"));
        EVENTUALLY_COMPARE(server.openConnections(), 0);
        QCOMPARE(downloaded, 0);
    }

    void destroyedByWhoIsTold()
    {
        WebServer server;
        server.setAnswer(path, WebAnswer::ok("contents"));
        const QPointer<UpdateCheck> check = new UpdateCheck(server.url(path), nullptr);
        QByteArray data;
        connect(check, &UpdateCheck::downloaded, this, [&] {
            data = check->downloadedData();
            check->deleteLater();
        });

        EVENTUALLY_VERIFY(check.isNull());

        QCOMPARE(data, QByteArray("contents"));
    }

    void replyIsDeletedAfterItsSignal()
    {
        WebServer server;
        server.setAnswer(path, WebAnswer::ok("contents"));
        QNetworkAccessManager manager;
        const QPointer<QNetworkReply> reply = manager.get(QNetworkRequest(server.url(path)));
        EVENTUALLY_VERIFY(reply->isFinished());
        Download check(server.url("/other"));

        check.fileDownloaded(reply);

        QCOMPARE(check.ended.count(), 1);
        QCOMPARE(check.downloadedData(), QByteArray("contents"));
        QVERIFY(!reply.isNull());
        EVENTUALLY_VERIFY(reply.isNull());
    }
};

QTEST_GUILESS_MAIN(UpdateCheckTest)
#include "UpdateCheckTest.moc"
