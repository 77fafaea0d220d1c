#include "update/UpdateCheck.h"

#include "tests/support/Patience.h"
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

} // namespace

Q_DECLARE_METATYPE(WebAnswer)

class UpdateCheckTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void request();
    void answers_data();
    void answers();
    void redirects_data();
    void redirects();
    void nothingToTalkTo_data();
    void nothingToTalkTo();
    void dataComeAllAtOnce();
    void dataAreACopy();
    void silentServer();
    void sideBySide();
    void destroyedWhileUnderWay_data();
    void destroyedWhileUnderWay();
    void destroyedByWhoIsTold();
    void endOfTheProgram();
    void endedReplies_data();
    void endedReplies();
    void laterReply();
};

void UpdateCheckTest::init()
{
    // Not the building machine's proxy.
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
}

/// Creating the object starts the request.
void UpdateCheckTest::request()
{
    WebServer server;
    server.setAnswer("/file.json?a=1&b=%20", WebAnswer::ok("contents"));

    UpdateCheck check(server.url("/file.json?a=1&b=%20"), nullptr);
    QSignalSpy downloaded(&check, &UpdateCheck::downloaded);
    EVENTUALLY_COMPARE(downloaded.count(), 1);

    QCOMPARE(server.requests().size(), 1);
    const WebRequest request = server.requests().constFirst();
    QCOMPARE(request.line, QByteArray("GET /file.json?a=1&b=%20 HTTP/1.1"));
    // The documentation tells users that these are all headers.
    QStringList names;
    for (const QByteArray &header : request.headers) {
        names.append(header.left(header.indexOf(':')));
    }
    names.sort();
    QCOMPARE(names, (QStringList{"Accept-Encoding", "Accept-Language", "Connection", "Host", "User-Agent"}));
    QCOMPARE(request.header("Host"), server.url(QString()).authority().toUtf8());
    QCOMPARE(request.header("User-Agent"), QByteArray("Mozilla/5.0"));
    QCOMPARE(check.downloadedData(), QByteArray("contents"));
}

void UpdateCheckTest::answers_data()
{
    QTest::addColumn<WebAnswer>("answer");
    QTest::addColumn<QByteArray>("data");

    const QByteArray json = R"({"halcon": [{"version": "20.11"}]})";
    const auto row = [](const char *name, const WebAnswer &answer, const QByteArray &data) {
        QTest::newRow(name) << answer << data;
    };
    row("200", WebAnswer::ok(json), json);
    row("200 without a body", WebAnswer::ok({}), {});
    row("200 with every byte", WebAnswer::ok(QByteArray("\0\r\n\r\n\xff\xef\xbb\xbf", 9)),
        QByteArray("\0\r\n\r\n\xff\xef\xbb\xbf", 9));
    row("204", WebAnswer::whole("204 No Content", {}), {});
    row("404 with a body", WebAnswer::whole("404 Not Found", "<html>nothing here</html>"),
        "<html>nothing here</html>");
    row("404 without a body", WebAnswer::whole("404 Not Found", {}), {});
    row("500 with a body", WebAnswer::whole("500 Internal Server Error", json), json);
    row("401", WebAnswer::whole("401 Unauthorized", "who are you", {"WWW-Authenticate: Basic realm=\"x\""}),
        "who are you");
    row("5 MB", WebAnswer::ok(largeBody()), largeBody());
    WebAnswer slow = inPieces(WebAnswer::ok(json), 10);
    slow.when = WebAnswer::When::AfterPauses;
    row("ten pieces with pauses", slow, json);
    row("5 MB in a thousand pieces", inPieces(WebAnswer::ok(largeBody()), 1000), largeBody());
    row("length unknown", raw({"HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n", json}), json);
    row("in chunks",
        raw({"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n", "4\r\none,\r\n", "4\r\n two\r\n",
             "0\r\n\r\n"}),
        "one, two");
    row("compressed",
        WebAnswer::whole("200 OK", qCompress(json.repeated(100)).mid(4), {"Content-Encoding: deflate"}),
        json.repeated(100));
    row("cut half-way", WebAnswer::cutOff("first half, other half"), "first half,");
    row("5 MB cut half-way", WebAnswer::cutOff(largeBody()), largeBody().left(largeBody().size() / 2));
    row("cut in the head", raw({"HTTP/1.1 200 OK\r\nContent-Le"}), {});
    row("closed without an answer", WebAnswer::closed(), {});
    row("no HTTP", raw({"220 mail.example ready\r\n\r\nhello"}), {});
}

void UpdateCheckTest::answers()
{
    QFETCH(WebAnswer, answer);
    QFETCH(QByteArray, data);
    WebServer server;
    server.setAnswer(path, answer);
    UpdateCheck check(server.url(path), nullptr);
    QSignalSpy downloaded(&check, &UpdateCheck::downloaded);

    EVENTUALLY_COMPARE(downloaded.count(), 1);
    EVENTUALLY_COMPARE(server.openConnections(), 0);

    QVERIFY2(check.downloadedData() == data, check.downloadedData().left(1000));
    QCOMPARE(downloaded.count(), 1);
}

void UpdateCheckTest::redirects_data()
{
    QTest::addColumn<QByteArray>("status");
    QTest::addColumn<QByteArray>("body");

    for (const char *status :
         {"301 Moved Permanently", "302 Found", "307 Temporary Redirect", "308 Permanent Redirect"}) {
        QTest::newRow(status) << QByteArray(status) << QByteArray();
        QTest::addRow("%s with a body", status) << QByteArray(status) << QByteArray("it has moved");
    }
}

/// Redirects are not followed: their body is taken for the data.
void UpdateCheckTest::redirects()
{
    QFETCH(QByteArray, status);
    QFETCH(QByteArray, body);
    WebServer server;
    server.setAnswer("/elsewhere", WebAnswer::ok("contents"));
    server.setAnswer(
        path, WebAnswer::whole(status, body, {"Location: " + server.url("/elsewhere").toString().toUtf8()}));
    UpdateCheck check(server.url(path), nullptr);
    QSignalSpy downloaded(&check, &UpdateCheck::downloaded);

    EVENTUALLY_COMPARE(downloaded.count(), 1);
    EVENTUALLY_COMPARE(server.openConnections(), 0);

    QCOMPARE(check.downloadedData(), body);
    QCOMPARE(server.targets(), QList<QByteArray>{path});
}

void UpdateCheckTest::nothingToTalkTo_data()
{
    QTest::addColumn<QUrl>("url");

    QTest::newRow("nobody listens") << address(WebServer::closedPort());
    QTest::newRow("no address") << QUrl();
    QTest::newRow("no protocol that it knows") << QUrl("nobody://127.0.0.1/file.json");
}

void UpdateCheckTest::nothingToTalkTo()
{
    QFETCH(QUrl, url);
    UpdateCheck check(url, nullptr);
    QSignalSpy downloaded(&check, &UpdateCheck::downloaded);

    // Never from within the constructor: nothing could have been connected by then.
    EVENTUALLY_COMPARE(downloaded.count(), 1);

    QCOMPARE(check.downloadedData(), QByteArray());
}

void UpdateCheckTest::dataComeAllAtOnce()
{
    WebServer server;
    WebAnswer answer = raw({"HTTP/1.1 200 OK\r\nContent-Length: 8\r\n\r\n", "con", "ten", "ts"});
    answer.when = WebAnswer::When::WhenTold;
    server.setAnswer(path, answer);
    UpdateCheck check(server.url(path), nullptr);
    QSignalSpy downloaded(&check, &UpdateCheck::downloaded);
    QCOMPARE(check.downloadedData(), QByteArray());
    EVENTUALLY_COMPARE(server.targets(), QList<QByteArray>{path});

    for (int piece = 0; piece < 3; ++piece) {
        server.proceed();
        // When another download has ended, the piece has arrived as well.
        UpdateCheck other(server.url("/other"), nullptr);
        QSignalSpy otherDownloaded(&other, &UpdateCheck::downloaded);
        EVENTUALLY_COMPARE(otherDownloaded.count(), 1);
        QCOMPARE(check.downloadedData(), QByteArray());
        QCOMPARE(downloaded.count(), 0);
    }
    server.proceed();

    EVENTUALLY_COMPARE(downloaded.count(), 1);
    QCOMPARE(check.downloadedData(), QByteArray("contents"));
}

void UpdateCheckTest::dataAreACopy()
{
    WebServer server;
    server.setAnswer(path, WebAnswer::ok("contents"));
    UpdateCheck check(server.url(path), nullptr);
    QSignalSpy downloaded(&check, &UpdateCheck::downloaded);
    EVENTUALLY_COMPARE(downloaded.count(), 1);

    check.downloadedData().clear();
    QByteArray data = check.downloadedData();
    data[0] = 'C';

    QCOMPARE(check.downloadedData(), QByteArray("contents"));
}

void UpdateCheckTest::silentServer()
{
    WebServer server;
    server.setAnswer(path, WebAnswer::silent());
    UpdateCheck check(server.url(path), nullptr);
    QSignalSpy downloaded(&check, &UpdateCheck::downloaded);
    EVENTUALLY_COMPARE(server.targets(), QList<QByteArray>{path});

    QTimer timer;
    QSignalSpy ticks(&timer, &QTimer::timeout);
    timer.start(1);
    EVENTUALLY_VERIFY(ticks.count() >= 20);

    QCOMPARE(downloaded.count(), 0);
    QCOMPARE(check.downloadedData(), QByteArray());
    QCOMPARE(server.openConnections(), 1);
}

void UpdateCheckTest::sideBySide()
{
    WebServer server;
    server.setAnswer("/first", WebAnswer::held("of the first"));
    server.setAnswer("/second", WebAnswer::ok("of the second"));
    UpdateCheck first(server.url("/first"), nullptr);
    QSignalSpy firstDownloaded(&first, &UpdateCheck::downloaded);
    UpdateCheck second(server.url("/second"), nullptr);
    QSignalSpy secondDownloaded(&second, &UpdateCheck::downloaded);

    EVENTUALLY_COMPARE(secondDownloaded.count(), 1);
    QCOMPARE(second.downloadedData(), QByteArray("of the second"));
    QCOMPARE(firstDownloaded.count(), 0);
    QCOMPARE(first.downloadedData(), QByteArray());

    EVENTUALLY_COMPARE(server.requests().size(), 2);
    server.proceed();
    EVENTUALLY_COMPARE(firstDownloaded.count(), 1);
    QCOMPARE(first.downloadedData(), QByteArray("of the first"));
    QCOMPARE(second.downloadedData(), QByteArray("of the second"));
    QCOMPARE(secondDownloaded.count(), 1);
}

void UpdateCheckTest::destroyedWhileUnderWay_data()
{
    QTest::addColumn<WebAnswer>("answer");
    QTest::addColumn<bool>("waitsForRequest");
    QTest::addColumn<bool>("byParent");

    WebAnswer half = inPieces(WebAnswer::ok("contents"), 2);
    half.closes = false;
    half.pieces.removeLast();
    for (const bool byParent : {false, true}) {
        const char *by = byParent ? "by its parent" : "by itself";
        QTest::addRow("before it has asked, %s", by) << WebAnswer::silent() << false << byParent;
        QTest::addRow("before the answer, %s", by) << WebAnswer::silent() << true << byParent;
        QTest::addRow("within the answer, %s", by) << half << true << byParent;
    }
}

void UpdateCheckTest::destroyedWhileUnderWay()
{
    QFETCH(WebAnswer, answer);
    QFETCH(bool, waitsForRequest);
    QFETCH(bool, byParent);
    WebServer server;
    server.setAnswer(path, answer);
    auto parent = std::make_unique<QObject>();
    const QPointer<UpdateCheck> check = new UpdateCheck(server.url(path), parent.get());
    QCOMPARE(check->parent(), parent.get());
    int downloaded = 0;
    connect(check, &UpdateCheck::downloaded, this, [&downloaded] { ++downloaded; });
    if (waitsForRequest) {
        EVENTUALLY_COMPARE(server.targets(), QList<QByteArray>{path});
        QCoreApplication::processEvents();
    }

    if (byParent) {
        parent.reset();
    } else {
        delete check;
    }

    QVERIFY(check.isNull());
    // The server sees the connection's end after everything else that was sent.
    UpdateCheck next(server.url("/next"), nullptr);
    EVENTUALLY_VERIFY(server.targets().contains("/next"));
    EVENTUALLY_COMPARE(server.openConnections(), 0);
    QCOMPARE(downloaded, 0);
}

void UpdateCheckTest::destroyedByWhoIsTold()
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

/// As when the window is closed during the download.
void UpdateCheckTest::endOfTheProgram()
{
    WebServer server;
    server.setAnswer(path, WebAnswer::silent());
    {
        UpdateCheck check(server.url(path), nullptr);
        QSignalSpy downloaded(&check, &UpdateCheck::downloaded);
        QEventLoop loop;
        connect(&server, &WebServer::requested, &loop, &QEventLoop::quit);
        QCOMPARE(loop.exec(), 0);
        QCOMPARE(downloaded.count(), 0);
        QCOMPARE(server.openConnections(), 1);
    }
    EVENTUALLY_COMPARE(server.openConnections(), 0);
}

void UpdateCheckTest::endedReplies_data()
{
    QTest::addColumn<QNetworkReply::NetworkError>("error");
    QTest::addColumn<QByteArray>("contents");

    const auto rows = [](const char *name, QNetworkReply::NetworkError error) {
        QTest::addRow("%s, with contents", name) << error << QByteArray("some\0contents", 13);
        QTest::addRow("%s, without", name) << error << QByteArray();
    };
    rows("no error", QNetworkReply::NoError);
    rows("not found", QNetworkReply::ContentNotFoundError);
    rows("refused", QNetworkReply::ConnectionRefusedError);
    rows("cut off", QNetworkReply::RemoteHostClosedError);
    rows("cancelled", QNetworkReply::OperationCanceledError);
}

void UpdateCheckTest::endedReplies()
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

void UpdateCheckTest::laterReply()
{
    WebServer server;
    server.setAnswer(path, WebAnswer::silent());
    UpdateCheck check(server.url(path), nullptr);
    QSignalSpy downloaded(&check, &UpdateCheck::downloaded);

    check.fileDownloaded(new EndedReply("first", QNetworkReply::NoError));
    check.fileDownloaded(new EndedReply("second", QNetworkReply::NoError));
    QCOMPARE(check.downloadedData(), QByteArray("second"));
    check.fileDownloaded(new EndedReply({}, QNetworkReply::NoError));

    QCOMPARE(check.downloadedData(), QByteArray());
    QCOMPARE(downloaded.count(), 3);
}

QTEST_GUILESS_MAIN(UpdateCheckTest)
#include "UpdateCheckTest.moc"
