#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>

class QNetworkReply;
class QUrl;

/// One look at a file on a web server: a GET request that starts at once and runs beside the event loop.
///
/// A look that fails is no special case: what arrived, mostly nothing, is the downloaded data. A server that never
/// answers keeps the object waiting until it is destroyed, which ends the request.
class UpdateCheck : public QObject {
    Q_OBJECT

public:
    /// Requests @p url, through the application's proxy or, by default, the system's.
    UpdateCheck(const QUrl &url, QObject *parent);

    /// The body of the answer as it came; empty until downloaded() and when nothing came.
    QByteArray downloadedData() const;

public slots:
    /// Takes the body out of the finished @p pReply, which is deleted later, and emits downloaded().
    void fileDownloaded(QNetworkReply *pReply);

signals:
    /// Emitted once the request has ended, well or not.
    void downloaded();

private:
    QNetworkAccessManager manager;
    QByteArray body;
};
