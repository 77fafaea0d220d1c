#include "update/UpdateCheck.h"

#include "base/DebugLogger.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

namespace {

void endIfTooLarge(QNetworkReply &reply)
{
    if (reply.bytesAvailable() <= UpdateCheck::largestBody) {
        return;
    }
    DebugLogger::instance().log(QStringLiteral("answer of %1 is not read: it has more than %2 bytes")
                                    .arg(reply.url().toString(), QString::number(UpdateCheck::largestBody)));
    // Ends with finished() and without data.
    reply.abort();
}

} // namespace

UpdateCheck::UpdateCheck(const QUrl &url, QObject *parent) : QObject(parent)
{
    connect(&manager, &QNetworkAccessManager::finished, this, &UpdateCheck::fileDownloaded);
    QNetworkReply *reply = manager.get(QNetworkRequest(url));
    // Not at its downloadProgress(), which leaves out what comes soon after another.
    connect(reply, &QNetworkReply::readyRead, this, [reply] { endIfTooLarge(*reply); });
}

QByteArray UpdateCheck::downloadedData() const
{
    return body;
}

void UpdateCheck::fileDownloaded(QNetworkReply *pReply)
{
    // Once aborted it is closed, and has nothing to read.
    body = pReply->isOpen() ? pReply->readAll() : QByteArray();
    pReply->deleteLater();
    emit downloaded();
}
