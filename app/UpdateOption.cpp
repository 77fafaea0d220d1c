#include "app/UpdateOption.h"

#include "update/UpdateCheck.h"

#include <QSettings>

UpdateOption::UpdateOption(const QString &key, const QUrl &url, QObject *parent)
    : QObject(parent), key(key), url(url)
{
}

bool UpdateOption::isOn() const
{
    return QSettings().value(key, false).toBool();
}

void UpdateOption::set(bool on)
{
    QSettings().setValue(key, on);
    if (on) {
        download();
    }
}

void UpdateOption::download()
{
    latest = new UpdateCheck(url, parent());
    connect(latest, &UpdateCheck::downloaded, this, &UpdateOption::downloaded);
}

QByteArray UpdateOption::downloadedData() const
{
    return latest == nullptr ? QByteArray() : latest->downloadedData();
}
