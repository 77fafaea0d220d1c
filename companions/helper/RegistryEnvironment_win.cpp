#include "companions/helper/RegistryEnvironment.h"

#include <windows.h>

/// An open registry key, closed with its owner; null when it could not be opened.
class RegistryEnvironment::Key {
public:
    Key()
    {
        const LSTATUS status = RegOpenKeyExW(
            HKEY_LOCAL_MACHINE, L"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment", 0,
            KEY_QUERY_VALUE | KEY_SET_VALUE | KEY_WOW64_64KEY, &handle);
        if (status != ERROR_SUCCESS) {
            handle = nullptr;
        }
    }
    Key(const Key &) = delete;
    Key &operator=(const Key &) = delete;
    ~Key()
    {
        if (handle != nullptr) {
            RegCloseKey(handle);
        }
    }
    HKEY get() const { return handle; }

private:
    HKEY handle = nullptr;
};

RegistryEnvironment::RegistryEnvironment() : key(std::make_unique<Key>()) {}

RegistryEnvironment::~RegistryEnvironment() = default;

bool RegistryEnvironment::read(const std::wstring &name, std::optional<StoredValue> &value)
{
    StoredValue found;
    DWORD size = 0;
    LSTATUS status = ERROR_MORE_DATA;
    // Somebody may make the value longer between two calls.
    while (status == ERROR_MORE_DATA) {
        found.bytes.resize(size);
        DWORD type = REG_NONE;
        // Without a buffer the call would succeed whatever the size.
        BYTE nothing = 0;
        status = RegQueryValueExW(key->get(), name.c_str(), nullptr, &type,
                                  size == 0 ? &nothing : found.bytes.data(), &size);
        found.type = type;
    }
    if (status == ERROR_SUCCESS) {
        found.bytes.resize(size);
        value = found;
    } else {
        value.reset();
    }
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}

bool RegistryEnvironment::write(const std::wstring &name, const StoredValue &value)
{
    return RegSetValueExW(key->get(), name.c_str(), 0, value.type, value.bytes.data(),
                          static_cast<DWORD>(value.bytes.size())) == ERROR_SUCCESS;
}

bool RegistryEnvironment::remove(const std::wstring &name)
{
    return RegDeleteValueW(key->get(), name.c_str()) == ERROR_SUCCESS;
}
