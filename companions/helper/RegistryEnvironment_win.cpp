#include "companions/helper/EnvironmentChange.h"

#include <windows.h>

namespace {

class RegistryEnvironment : public EnvironmentStore {
public:
    RegistryEnvironment()
    {
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE,
                          L"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment", 0,
                          KEY_QUERY_VALUE | KEY_SET_VALUE | KEY_WOW64_64KEY, &key) != ERROR_SUCCESS) {
            key = nullptr;
        }
    }
    RegistryEnvironment(const RegistryEnvironment &) = delete;
    RegistryEnvironment &operator=(const RegistryEnvironment &) = delete;
    ~RegistryEnvironment() override
    {
        if (key != nullptr) {
            RegCloseKey(key);
        }
    }

    bool read(const std::wstring &name, std::optional<StoredValue> &value) override
    {
        StoredValue found;
        DWORD size = 0;
        LSTATUS status = ERROR_MORE_DATA;
        // The value may grow between two calls.
        while (status == ERROR_MORE_DATA) {
            found.bytes.resize(size);
            DWORD type = REG_NONE;
            // With a null buffer the call would succeed for any size.
            BYTE nothing = 0;
            status = RegQueryValueExW(key, name.c_str(), nullptr, &type,
                                      size == 0 ? &nothing : found.bytes.data(), &size);
            found.type = type;
        }
        value.reset();
        if (status == ERROR_SUCCESS) {
            found.bytes.resize(size);
            value = found;
        }
        return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
    }

    bool write(const std::wstring &name, const std::optional<StoredValue> &value) override
    {
        const LSTATUS status = value ? RegSetValueExW(key, name.c_str(), 0, value->type, value->bytes.data(),
                                                      static_cast<DWORD>(value->bytes.size()))
                                     : RegDeleteValueW(key, name.c_str());
        return status == ERROR_SUCCESS;
    }

private:
    HKEY key = nullptr;
};

} // namespace

std::unique_ptr<EnvironmentStore> machineEnvironment()
{
    return std::make_unique<RegistryEnvironment>();
}
