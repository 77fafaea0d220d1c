#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariant>

/// Reads one key of the registry and never creates one: a missing key has no groups and no values.
///
/// A settings object in native format creates a missing key, and those above it, even when it is only read.
/// So this one is made for the hive, which always exists, and the key is a group in it: groups are opened for
/// reading only.
///
/// Groups and values are named as in settings objects: a slash separates keys, and a backslash represents a
/// slash in the name of a key.
class RegistryReader {
public:
    /// For a full path with backslashes, such as "HKEY_LOCAL_MACHINE\Software\MVTec\HALCON".
    explicit RegistryReader(const QString &keyPath);

    /// For a key below this one, such as "20.11-Progress/InstalledComponents".
    RegistryReader below(const QString &group) const;

    /// The names of the keys directly below this one.
    QStringList childGroups() const { return settings.childGroups(); }

    /// The names of the key's values, and of those of all keys below it, such as "Documentation/English".
    QStringList allKeys() const { return settings.allKeys(); }

    /// Whether the key has the value @p name.
    bool contains(const QString &name) const { return settings.contains(name); }

    /// The value @p name; invalid when it is missing.
    QVariant value(const QString &name) const { return settings.value(name); }

private:
    RegistryReader(const QString &hive, const QString &group);

    QString hive;
    QSettings settings;
};
