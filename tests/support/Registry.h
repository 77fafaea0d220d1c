#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Writes and queries the registry with the Win32 API, independently of the code under test. Keys are full
/// paths such as "HKEY_LOCAL_MACHINE\Software\MVTec\HALCON\13.0", in the 64-bit view. A failure ends the test
/// program.
namespace Registry {

/// Creates @p key and every missing key above it.
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

/// Removes @p key with everything below it, if it exists.
void removeTree(const QString &key);

/// While it lives, nobody may write to a key, or even read it, this process included.
class Lock {
public:
    enum class Allows { reading, nothing };

    Lock(const QString &key, Allows allows);
    Lock(const Lock &) = delete;
    Lock &operator=(const Lock &) = delete;
    ~Lock();

private:
    QString name; ///< as the functions for access rights want it
};

} // namespace Registry
