#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QUrl>

/// While it lives, receives the links of some schemes that the program passes to the desktop.
class Desktop : public QObject {
    Q_OBJECT

public:
    explicit Desktop(const QString &scheme) : Desktop(QStringList{scheme}) {}
    explicit Desktop(const QStringList &schemes) : schemes(schemes)
    {
        for (const QString &scheme : schemes) {
            QDesktopServices::setUrlHandler(scheme, this, "open");
        }
    }
    ~Desktop() override
    {
        for (const QString &scheme : schemes) {
            QDesktopServices::unsetUrlHandler(scheme);
        }
    }

    QList<QUrl> opened;

public slots:
    void open(const QUrl &link) { opened.append(link); }

private:
    QStringList schemes;
};
