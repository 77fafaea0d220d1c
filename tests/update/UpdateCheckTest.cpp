#include "update/UpdateCheck.h"

#include "tests/support/Messages.h"
#include "tests/support/Patience.h"
#include "tests/support/Rows.h"
#include "tests/support/WebServer.h"

#include <QNetworkReply>
#include <QPointer>
#include <QTimer>
#include <QtTest>

#include <cstring>
#include <memory>

namespace {

const char *const path = "/file.json";

/// 5 MB without repetitions.
QByteArray largeBody()
{
    static const QByteArray body = [] {
        QByteArray numbers;
        while (numbers.size() < 5 * 1024 * 1024) {
            numbers += QByteArray::number(numbers.size()) + '\n';
        }
        return numbers;
    }();
    return body;
}

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

QUrl address(quint16 port)
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1/file.json").arg(port));
}

/// A fake of a finished reply, with only contents and an error.
class EndedReply : public QNetworkReply {
public:
    EndedReply(const QByteArray &contents, NetworkError error) : unread(contents)
    {
        setError(error, QStringLiteral("an error"));
        setFinished(true);
        open(ReadOnly);
    }

    void abort() override {}
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return unread.size() + QNetworkReply::bytesAvailable(); }

protected:
    qint64 readData(char *data, qint64 maximum) override
    {
        const QByteArray part = unread.left(int(maximum));
        std::memcpy(data, part.constData(), size_t(part.size()));
        unread.remove(0, part.size());
        return part.size();
    }

private:
    QByteArray unread;
};

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
        row("200 without a body", WebAnswer::ok({}), {});
        row("200 with every byte", WebAnswer::ok(QByteArray("\0\r\n\r\n\xff\xef\xbb\xbf", 9)),
            QByteArray("\0\r\n\r\n\xff\xef\xbb\xbf", 9));
        row("404 with a body", WebAnswer::whole("404 Not Found", "<html>nothing here</html>"),
            "<html>nothing here</html>");
        row("compressed", WebAnswer::whole("200 OK", compressed(json), {"Content-Encoding: deflate"}), json);
        row("compressed and cut off",
            WebAnswer::whole("200 OK", compressed(largeBody()).left(20), {"Content-Encoding: deflate"}), {});
        row("401",
            WebAnswer::whole("401 Unauthorized", "who are you", {"WWW-Authenticate: Basic realm=\"x\""}),
            "who are you");
        row("5 MB in a thousand pieces", inPieces(WebAnswer::ok(largeBody()), 1000), largeBody());
        row("cut half-way", WebAnswer::cutOff("first half, other half"), "first half,");
        row("closed without an answer", WebAnswer::closed(), {});
        row("no HTTP", raw({"220 mail.example ready\r\n\r\nhello"}), {});
        // Redirects are not followed.
        row("301", WebAnswer::whole("301 Moved Permanently", {}, {"Location: /elsewhere"}), {});
        row("308 with a body", WebAnswer::whole("308 Permanent Redirect", "moved", {"Location: /elsewhere"}),
            "moved");
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

        row("nobody listens", address(WebServer::closedPort()));
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

    void silentServer()
    {
        WebServer server;
        server.setAnswer(path, WebAnswer::silent());
        Download check(server.url(path));
        EVENTUALLY_COMPARE(server.targets(), QList<QByteArray>{path});

        QTimer timer;
        QSignalSpy ticks(&timer, &QTimer::timeout);
        timer.start(1);
        EVENTUALLY_VERIFY(ticks.count() >= 20);

        QCOMPARE(check.ended.count(), 0);
        QCOMPARE(check.downloadedData(), QByteArray());
        QCOMPARE(server.openConnections(), 1);
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

    void endedReplies_data()
    {
        columns<QNetworkReply::NetworkError, QByteArray>("error", "contents");

        row("no error", QNetworkReply::NoError, QByteArray("some\0contents", 13));
        row("not found, with contents", QNetworkReply::ContentNotFoundError,
            QByteArray("some\0contents", 13));
        row("refused", QNetworkReply::ConnectionRefusedError, QByteArray());
    }

    void endedReplies()
    {
        QFETCH(QNetworkReply::NetworkError, error);
        QFETCH(QByteArray, contents);
        WebServer server;
        server.setAnswer(path, WebAnswer::silent());
        UpdateCheck check(server.url(path), nullptr);
        const QPointer<QNetworkReply> reply = new EndedReply(contents, error);
        QList<QByteArray> dataWhenTold;
        connect(&check, &UpdateCheck::downloaded, this, [&] { dataWhenTold << check.downloadedData(); });

        QVERIFY(QMetaObject::invokeMethod(&check, "fileDownloaded", Q_ARG(QNetworkReply *, reply)));

        QCOMPARE(dataWhenTold, QList<QByteArray>{contents});
        QVERIFY2(!reply.isNull(), "It is still in the middle of its signal.");
        EVENTUALLY_VERIFY(reply.isNull());
        QCOMPARE(check.downloadedData(), contents);
        QCOMPARE(dataWhenTold.size(), 1);
    }
};

QTEST_GUILESS_MAIN(UpdateCheckTest)
#include "UpdateCheckTest.moc"
