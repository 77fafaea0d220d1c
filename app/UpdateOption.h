#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QUrl>

class UpdateCheck;

/// The user's option to look for newer releases at one address. It is kept in the settings, and off at first.
class UpdateOption : public QObject {
    Q_OBJECT

public:
    /// The option is under @p key in the settings. Starts no download. What it downloads with belongs to
    /// @p parent, too.
    UpdateOption(const QString &key, const QUrl &url, QObject *parent);

    /// Whether it is on, going by the settings.
    bool isOn() const;

    /// Stores whether it is on and, if so, starts a download.
    void set(bool on);

    /// Starts a download. Earlier ones go on, but their data is no longer returned.
    void download();

    /// What the latest download has brought so far; empty without one.
    QByteArray downloadedData() const;

signals:
    /// Emitted at the end of each download, successful or not.
    void downloaded();

private:
    const QString key;
    const QUrl url;
    UpdateCheck *latest = nullptr; ///< earlier ones live as long as the parent
};
