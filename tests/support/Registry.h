#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Writes to the registry, and looks into it, with the Win32 API, independently of the code under test. Keys are
/// full paths such as "HKEY_LOCAL_MACHINE\Software\MVTec\HALCON\13.0"; the 64-bit view is meant. A failure ends the
/// test program.
namespace Registry {

/// Makes @p key and every key above it that is missing.
void createKey(const QString &key);

/// Sets a REG_SZ value; an empty @p name is the key's default value.
void setString(const QString &key, const QString &name, const QString &value);

/// Sets a REG_EXPAND_SZ value.
void setExpandString(const QString &key, const QString &name, const QString &value);

/// Sets a REG_MULTI_SZ value.
void setStrings(const QString &key, const QString &name, const QStringList &values);

/// Sets a REG_DWORD value.
void setDword(const QString &key, const QString &name, quint32 value);

/// Sets a REG_QWORD value.
void setQword(const QString &key, const QString &name, quint64 value);

/// Sets a REG_BINARY value.
void setBinary(const QString &key, const QString &name, const QByteArray &value);

/// Whether there is such a key.
bool exists(const QString &key);

/// Removes @p key with all below it; nothing happens when it does not exist.
void removeTree(const QString &key);

} // namespace Registry
