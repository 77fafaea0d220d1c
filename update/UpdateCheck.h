#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>

class QNetworkReply;
class QUrl;

/// One download of a file from a web server: a GET request that starts at once and does not block.
///
/// Failure is no special case: whatever arrived, usually nothing, is the downloaded data. A server that never
/// answers keeps the object waiting until it is destroyed, which ends the request. A body larger than
/// largestBody ends the request as soon as that is known; it is logged, and nothing counts as downloaded.
class UpdateCheck : public QObject {
    Q_OBJECT

public:
    /// In bytes, decompressed: some thousand times what the files have that are published.
    static constexpr int largestBody = 16 * 1024 * 1024;

    /// Requests @p url, through the application's proxy or, by default, the system's.
    UpdateCheck(const QUrl &url, QObject *parent);

    /// The body of the response, unchanged; empty until downloaded() and when nothing arrived.
    QByteArray downloadedData() const;

public slots:
    /// Reads the body of the finished @p pReply, which is deleted later, and emits downloaded().
    void fileDownloaded(QNetworkReply *pReply);

signals:
    /// Emitted once the request has ended, successfully or not.
    void downloaded();

private:
    QNetworkAccessManager manager;
    QByteArray body;
};
