#include "tests/support/WebServer.h"

#include <QTcpSocket>
#include <QTimer>

#include <utility>

namespace {

const char *const lineEnd = "\r\n";
const int pauseMilliseconds = 20;

QByteArray head(const QByteArray &status, int length, const QList<QByteArray> &headers)
{
    QList<QByteArray> lines{"HTTP/1.1 " + status};
    lines << headers << "Content-Length: " + QByteArray::number(length) << "Connection: close";
    return lines.join(lineEnd) + lineEnd + lineEnd;
}

WebRequest readHead(const QByteArray &head)
{
    WebRequest request;
    QByteArray text = head;
    request.headers = text.replace(lineEnd, "\n").split('\n');
    request.line = request.headers.takeFirst();
    request.target = request.line.split(' ').value(1);
    return request;
}

} // namespace

QByteArray WebRequest::header(const QByteArray &name) const
{
    for (const QByteArray &line : headers) {
        const int colon = line.indexOf(':');
        if (colon != -1 && line.left(colon).compare(name, Qt::CaseInsensitive) == 0) {
            return line.mid(colon + 1).trimmed();
        }
    }
    return {};
}

WebAnswer WebAnswer::whole(const QByteArray &status, const QByteArray &body, const QList<QByteArray> &headers)
{
    WebAnswer answer;
    answer.pieces << head(status, body.size(), headers) + body;
    return answer;
}

WebAnswer WebAnswer::ok(const QByteArray &body)
{
    return whole("200 OK", body);
}

WebAnswer WebAnswer::held(const QByteArray &body)
{
    WebAnswer answer = ok(body);
    answer.when = When::WhenTold;
    return answer;
}

WebAnswer WebAnswer::silent()
{
    WebAnswer answer;
    answer.closes = false;
    return answer;
}

WebAnswer WebAnswer::cutOff(const QByteArray &body)
{
    WebAnswer answer;
    answer.pieces << head("200 OK", body.size(), {}) + body.left(body.size() / 2);
    return answer;
}

WebAnswer WebAnswer::closed()
{
    return {};
}

/// One client, which may make several requests, one after the other.
class WebServer::Connection : public QObject {
public:
    Connection(WebServer &owner, QTcpSocket *client) : QObject(client), server(owner), socket(client)
    {
        // Each piece must arrive separately.
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        connect(socket, &QTcpSocket::readyRead, this, &Connection::read);
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::disconnected, this, [this] {
            timer.stop();
            server.connections.removeOne(this);
        });
        connect(&timer, &QTimer::timeout, this, &Connection::sendPiece);
        timer.setSingleShot(true);
    }

    bool isHeldBack() const { return isAnswering && answer.when == WebAnswer::When::WhenTold; }

    void sendPiece()
    {
        if (!answer.pieces.isEmpty()) {
            socket->write(answer.pieces.takeFirst());
            socket->flush();
        }
        goOn();
    }

private:
    void read()
    {
        received += socket->readAll();
        const QByteArray headEnd = QByteArray(lineEnd) + lineEnd;
        const int end = received.indexOf(headEnd);
        if (isAnswering || end == -1) {
            return;
        }
        const WebRequest request = readHead(received.left(end));
        received.remove(0, end + headEnd.size());
        isAnswering = true;
        answer = server.take(request);
        goOn();
    }

    void goOn()
    {
        if (answer.pieces.isEmpty()) {
            isAnswering = false;
            if (answer.closes) {
                socket->disconnectFromHost();
            }
        } else if (answer.when != WebAnswer::When::WhenTold) {
            timer.start(answer.when == WebAnswer::When::AfterPauses ? pauseMilliseconds : 0);
        }
    }

    WebServer &server;
    QTcpSocket *socket;
    QTimer timer;
    QByteArray received;
    WebAnswer answer;
    bool isAnswering = false;
};

WebServer::WebServer()
{
    // By default the server would try to listen through the application's proxy.
    listener.setProxy(QNetworkProxy::NoProxy);
    connect(&listener, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *socket = listener.nextPendingConnection()) {
            connections << new Connection(*this, socket);
            ++accepted;
        }
    });
    if (!listener.listen(QHostAddress::LocalHost)) {
        qFatal("The web server cannot listen: %s", qPrintable(listener.errorString()));
    }
}

WebServer::~WebServer()
{
    // Disconnections must be ignored from now on: the sockets are destroyed after the list of connections.
    qDeleteAll(std::exchange(connections, {}));
}

QUrl WebServer::url(const QString &path) const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(QString::number(listener.serverPort()), path));
}

QNetworkProxy WebServer::asProxy() const
{
    return {QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), listener.serverPort()};
}

void WebServer::setAnswer(const QByteArray &target, const WebAnswer &answer)
{
    answers.insert(target, answer);
}

void WebServer::setAnswers(const Answer &answer)
{
    answerFunction = answer;
}

QList<WebRequest> WebServer::requests() const
{
    return taken;
}

QList<QByteArray> WebServer::targets() const
{
    QList<QByteArray> targets;
    for (const WebRequest &request : taken) {
        targets << request.target;
    }
    return targets;
}

int WebServer::acceptedConnections() const
{
    return accepted;
}

int WebServer::openConnections() const
{
    return connections.size();
}

void WebServer::proceed()
{
    const QList<Connection *> all = connections;
    for (Connection *connection : all) {
        if (connection->isHeldBack()) {
            connection->sendPiece();
        }
    }
}

quint16 WebServer::closedPort()
{
    QTcpServer server;
    server.setProxy(QNetworkProxy::NoProxy);
    if (!server.listen(QHostAddress::LocalHost)) {
        qFatal("No free port: %s", qPrintable(server.errorString()));
    }
    return server.serverPort();
}

WebAnswer WebServer::take(const WebRequest &request)
{
    taken << request;
    emit requested(request.target);
    if (answerFunction) {
        return answerFunction(request);
    }
    return answers.value(request.target, WebAnswer::whole("404 Not Found", {}));
}
