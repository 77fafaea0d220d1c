#include "tests/support/Registry.h"
#include "tests/support/WideText.h"

#include <QtGlobal>

#include <windows.h>

#include <aclapi.h>

namespace {

struct Location {
    HKEY root;
    QString path;
};

Location locate(const QString &key)
{
    const QString rootName = key.section(QLatin1Char('\\'), 0, 0);
    const QString path = key.section(QLatin1Char('\\'), 1);
    if (rootName == QLatin1String("HKEY_LOCAL_MACHINE")) {
        return {HKEY_LOCAL_MACHINE, path};
    }
    if (rootName == QLatin1String("HKEY_CURRENT_USER")) {
        return {HKEY_CURRENT_USER, path};
    }
    qFatal("unknown registry root in %s", qPrintable(key));
}

/// An open key, closed with its owner.
class OpenKey {
public:
    explicit OpenKey(const QString &key)
    {
        const Location location = locate(key);
        const LSTATUS status = RegCreateKeyExW(location.root, wide(location.path), 0, nullptr, 0,
                                               KEY_WRITE | KEY_WOW64_64KEY, nullptr, &handle, nullptr);
        if (status != ERROR_SUCCESS) {
            qFatal("could not make registry key %s: error %ld", qPrintable(key), status);
        }
    }
    OpenKey(const OpenKey &) = delete;
    OpenKey &operator=(const OpenKey &) = delete;
    ~OpenKey() { RegCloseKey(handle); }

    void set(const QString &name, DWORD type, const void *data, std::size_t size) const
    {
        const LSTATUS status = RegSetValueExW(handle, wide(name), 0, type, static_cast<const BYTE *>(data),
                                              static_cast<DWORD>(size));
        if (status != ERROR_SUCCESS) {
            qFatal("could not set registry value %s: error %ld", qPrintable(name), status);
        }
    }

    /// @p text is stored with its terminating 0.
    void setText(const QString &name, DWORD type, const QString &text) const
    {
        set(name, type, text.utf16(), (std::size_t(text.size()) + 1) * sizeof(ushort));
    }

private:
    HKEY handle = nullptr;
};

/// Sets who may do what with a key; a null list permits everything to everybody.
bool permit(const QString &name, ACL *list)
{
    std::wstring changeable = name.toStdWString();
    return SetNamedSecurityInfoW(changeable.data(), SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION, nullptr,
                                 nullptr, list, nullptr) == ERROR_SUCCESS;
}

} // namespace

namespace Registry {

void createKey(const QString &key)
{
    const OpenKey created(key);
}

void setString(const QString &key, const QString &name, const QString &value)
{
    OpenKey(key).setText(name, REG_SZ, value);
}

void setExpandString(const QString &key, const QString &name, const QString &value)
{
    OpenKey(key).setText(name, REG_EXPAND_SZ, value);
}

void setStrings(const QString &key, const QString &name, const QStringList &values)
{
    OpenKey(key).setText(name, REG_MULTI_SZ, values.join(QChar()) + QChar());
}

void setDword(const QString &key, const QString &name, quint32 value)
{
    OpenKey(key).set(name, REG_DWORD, &value, sizeof(value));
}

void setQword(const QString &key, const QString &name, quint64 value)
{
    OpenKey(key).set(name, REG_QWORD, &value, sizeof(value));
}

void setBinary(const QString &key, const QString &name, const QByteArray &value)
{
    OpenKey(key).set(name, REG_BINARY, value.constData(), std::size_t(value.size()));
}

bool exists(const QString &key)
{
    const Location location = locate(key);
    HKEY handle = nullptr;
    const LSTATUS status =
        RegOpenKeyExW(location.root, wide(location.path), 0, KEY_READ | KEY_WOW64_64KEY, &handle);
    if (status == ERROR_SUCCESS) {
        RegCloseKey(handle);
    } else if (status != ERROR_FILE_NOT_FOUND) {
        qFatal("could not look for registry key %s: error %ld", qPrintable(key), status);
    }
    return status == ERROR_SUCCESS;
}

void removeTree(const QString &key)
{
    const Location location = locate(key);
    const LSTATUS status = RegDeleteTreeW(location.root, wide(location.path));
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) {
        qFatal("could not remove registry key %s: error %ld", qPrintable(key), status);
    }
}

Lock::Lock(const QString &key, Allows allows)
    : name(QString(key)
               .replace(QLatin1String("HKEY_LOCAL_MACHINE"), QLatin1String("MACHINE"))
               .replace(QLatin1String("HKEY_CURRENT_USER"), QLatin1String("CURRENT_USER")))
{
    wchar_t everyone[] = L"Everyone";
    EXPLICIT_ACCESSW access = {};
    access.grfAccessPermissions = allows == Allows::reading ? KEY_READ : READ_CONTROL;
    access.grfAccessMode = SET_ACCESS;
    access.Trustee.TrusteeForm = TRUSTEE_IS_NAME;
    access.Trustee.ptstrName = everyone;
    PACL list = nullptr;
    const bool set = SetEntriesInAclW(1, &access, nullptr, &list) == ERROR_SUCCESS && permit(name, list);
    LocalFree(list);
    if (!set) {
        qFatal("could not lock registry key %s", qPrintable(key));
    }
}

Lock::~Lock()
{
    permit(name, nullptr);
}

} // namespace Registry
