#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

/// Receives, while it lives, the links of one scheme that the program hands to the desktop.
class Desktop : public QObject {
    Q_OBJECT

public:
    explicit Desktop(const QString &scheme) : scheme(scheme)
    {
        QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    ~Desktop() override { QDesktopServices::unsetUrlHandler(scheme); }

    QList<QUrl> opened;

public slots:
    void open(const QUrl &link) { opened.append(link); }

private:
    QString scheme;
};
