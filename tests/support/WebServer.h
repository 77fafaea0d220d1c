#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QNetworkProxy>
#include <QTcpServer>
#include <QUrl>

#include <functional>

/// A client's request, unchanged.
struct WebRequest {
    QByteArray line;   ///< "GET /file HTTP/1.1"; a proxy gets "GET http://www.x.example/file HTTP/1.1"
    QByteArray target; ///< the middle of the line: "/file" or "http://www.x.example/file"
    QList<QByteArray> headers; ///< each line such as "Host: 127.0.0.1", in their order

    /// The value of the header @p name, ignoring case; null when there is none.
    QByteArray header(const QByteArray &name) const;
};

/// The server's response: raw bytes, in pieces.
struct WebAnswer {
    enum class When {
        AtOnce,      ///< one piece after the other, each sent separately
        AfterPauses, ///< a short pause before each piece
        WhenTold,    ///< one piece for each WebServer::proceed()
    };

    QList<QByteArray> pieces; ///< head and body; without any the server stays silent
    When when = When::AtOnce;
    bool closes = true; ///< whether the connection is closed after the last piece

    /// A complete answer with @p status, such as "200 OK", and @p body. Each of @p headers is a line without
    /// its end.
    static WebAnswer whole(const QByteArray &status, const QByteArray &body,
                           const QList<QByteArray> &headers = {});

    /// "200 OK" with @p body.
    static WebAnswer ok(const QByteArray &body);

    /// "200 OK" with @p body, which is held back until WebServer::proceed().
    static WebAnswer held(const QByteArray &body);

    /// Accepts the request and sends nothing; the connection stays open.
    static WebAnswer silent();

    /// "200 OK" with the first half of @p body, then closes the connection.
    static WebAnswer cutOff(const QByteArray &body);

    /// Only closes the connection.
    static WebAnswer closed();
};

/// A fake web server on the loopback interface, at a free port, in the test's event loop. It does not use the
/// application's proxy, and can be that proxy:
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

    /// Answers each request for @p target, as in the request's line, with @p answer.
    void setAnswer(const QByteArray &target, const WebAnswer &answer);

    /// Answers each request by calling @p answer, instead of the table that setAnswer() fills.
    void setAnswers(const Answer &answer);

    /// All requests so far, in order of arrival.
    QList<WebRequest> requests() const;

    /// The targets of requests().
    QList<QByteArray> targets() const;

    /// How many connections there have been so far.
    int acceptedConnections() const;

    /// How many connections neither side has closed.
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

/// Sets the application's proxy while this object lives, then none.
class ApplicationProxy {
public:
    explicit ApplicationProxy(const QNetworkProxy &proxy) { QNetworkProxy::setApplicationProxy(proxy); }
    ~ApplicationProxy() { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }
    Q_DISABLE_COPY_MOVE(ApplicationProxy)
};
