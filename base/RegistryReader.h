#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariant>

/// Reads one key of the registry, and never makes one: a key that is missing has no groups and no values.
///
/// A settings object in the native format that is made for a missing key creates it, and those above it, even when it
/// is only read. Here the settings object is made for the hive, which is always there, and the key is its group: groups
/// are opened for reading only.
///
/// Groups and values have the names that settings objects give them: a slash stands between two keys, and a backslash
/// for a slash in the name of a key.
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

    /// The value @p name; an invalid one when it is missing.
    QVariant value(const QString &name) const { return settings.value(name); }

private:
    RegistryReader(const QString &hive, const QString &group);

    QString hive;
    QSettings settings;
};
