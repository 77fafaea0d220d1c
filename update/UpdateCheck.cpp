#include "update/UpdateCheck.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

UpdateCheck::UpdateCheck(const QUrl &url, QObject *parent) : QObject(parent)
{
    connect(&manager, &QNetworkAccessManager::finished, this, &UpdateCheck::fileDownloaded);
    manager.get(QNetworkRequest(url));
}

QByteArray UpdateCheck::downloadedData() const
{
    return body;
}

void UpdateCheck::fileDownloaded(QNetworkReply *pReply)
{
    body = pReply->readAll();
    pReply->deleteLater();
    emit downloaded();
}
