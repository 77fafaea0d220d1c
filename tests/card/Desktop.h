#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

/// While it lives, receives the links of one scheme that the program passes to the desktop.
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
