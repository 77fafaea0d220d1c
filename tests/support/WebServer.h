#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QNetworkProxy>
#include <QTcpServer>
#include <QUrl>

#include <functional>

/// What a client asked for, as it came.
struct WebRequest {
    QByteArray line;   ///< "GET /file HTTP/1.1"; a proxy gets "GET http://www.x.example/file HTTP/1.1"
    QByteArray target; ///< the middle of the line: "/file" or "http://www.x.example/file"
    QList<QByteArray> headers; ///< each line such as "Host: 127.0.0.1", in their order

    /// The value of the header @p name, in whatever case it came; null when there is none.
    QByteArray header(const QByteArray &name) const;
};

/// What the server sends back: raw bytes, in pieces.
struct WebAnswer {
    enum class When {
        AtOnce,      ///< each piece by itself, one after the other
        AfterPauses, ///< a short pause before each piece
        WhenTold,    ///< one piece for each WebServer::proceed()
    };

    QList<QByteArray> pieces; ///< head and body; none at all: the server stays silent
    When when = When::AtOnce;
    bool closes = true; ///< closes the connection behind the last piece

    /// A whole answer with @p status, such as "200 OK", and @p body. Each of @p headers is a line without its end.
    static WebAnswer whole(const QByteArray &status, const QByteArray &body,
                           const QList<QByteArray> &headers = {});

    /// "200 OK" with @p body.
    static WebAnswer ok(const QByteArray &body);

    /// "200 OK" with @p body, which is held back until WebServer::proceed().
    static WebAnswer held(const QByteArray &body);

    /// Takes the request and says nothing, with the connection open.
    static WebAnswer silent();

    /// "200 OK" with the first half of @p body, then the connection's end.
    static WebAnswer cutOff(const QByteArray &body);

    /// No answer but the connection's end.
    static WebAnswer closed();
};

/// A web server on the loopback interface, at a port of its own, that runs in the test's event loop. It is none of the
/// clients of the application's proxy, and can be that proxy:
///
///     WebServer server;
///     server.setAnswer("http://www.nobody.example/file", WebAnswer::ok("contents"));
///     QNetworkProxy::setApplicationProxy(server.asProxy());
///     ...
///     EVENTUALLY_COMPARE(server.targets(), QList<QByteArray>{"http://www.nobody.example/file"});
///
/// Targets without an answer get "404 Not Found" without a body.
class WebServer : public QObject {
    Q_OBJECT

public:
    using Answer = std::function<WebAnswer(const WebRequest &)>;

    WebServer();
    ~WebServer() override;

    /// The address of @p path, which begins with "/", on this server.
    QUrl url(const QString &path) const;

    /// This server as an HTTP proxy.
    QNetworkProxy asProxy() const;

    /// Answers each request for @p target, as it stands in the request's line, with @p answer.
    void setAnswer(const QByteArray &target, const WebAnswer &answer);

    /// Answers each request by calling @p answer, instead of the table that setAnswer() fills.
    void setAnswers(const Answer &answer);

    /// All requests so far, in the order in which they came.
    QList<WebRequest> requests() const;

    /// The targets of requests().
    QList<QByteArray> targets() const;

    /// How many connections there have been so far.
    int acceptedConnections() const;

    /// The connections that neither side has closed.
    int openConnections() const;

    /// Sends the next piece of every answer that is held back.
    void proceed();

    /// A port of the loopback interface at which nobody listens.
    static quint16 closedPort();

signals:
    /// Emitted for each request, before it is answered.
    void requested(const QByteArray &target);

private:
    class Connection;

    WebAnswer take(const WebRequest &request);

    QTcpServer listener;
    int accepted = 0;
    QList<Connection *> connections;
    QList<WebRequest> taken;
    QHash<QByteArray, WebAnswer> answers;
    Answer answerFunction;
};

/// Makes a proxy the application's for as long as this lives, then none.
class ApplicationProxy {
public:
    explicit ApplicationProxy(const QNetworkProxy &proxy) { QNetworkProxy::setApplicationProxy(proxy); }
    ~ApplicationProxy() { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }
    Q_DISABLE_COPY_MOVE(ApplicationProxy)
};
