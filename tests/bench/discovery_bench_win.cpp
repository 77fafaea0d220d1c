// How long the search for 100 installations takes, against a walk over the registry that reads the same
// values with Win32 alone; also on a machine with 2,000 other programs.

#include "discovery/RegistryDiscovery.h"
#include "tests/bench/Figures.h"
#include "tests/discovery/HalconKeys.h"
#include "tests/support/Messages.h"

#include <windows.h>

#include <array>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr int products = 100;
constexpr int otherPrograms = 2000;

/// Kept, so that the compiler cannot optimise reading away.
std::size_t bytesRead = 0;

/// An open registry key; none when there is no such key.
class Key {
public:
    Key(HKEY above, const wchar_t *path)
    {
        if (RegOpenKeyExW(above, path, 0, KEY_READ | KEY_WOW64_64KEY, &key) != ERROR_SUCCESS) {
            key = nullptr;
        }
    }
    Key(const Key &) = delete;
    Key &operator=(const Key &) = delete;
    ~Key()
    {
        if (key != nullptr) {
            RegCloseKey(key);
        }
    }

    std::vector<std::wstring> names() const
    {
        std::vector<std::wstring> names;
        std::array<wchar_t, 256> name{};
        DWORD length = name.size();
        for (DWORD i = 0;
             RegEnumKeyExW(key, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
             ++i, length = name.size()) {
            names.emplace_back(name.data(), length);
        }
        return names;
    }

    void readAll() const
    {
        std::array<wchar_t, 256> name{};
        std::array<BYTE, 4096> data{};
        DWORD length = name.size();
        DWORD size = data.size();
        for (DWORD i = 0; RegEnumValueW(key, i, name.data(), &length, nullptr, nullptr, data.data(), &size) ==
                          ERROR_SUCCESS;
             ++i, length = name.size(), size = data.size()) {
            bytesRead += size;
        }
    }

    void read(const wchar_t *name) const
    {
        std::array<BYTE, 4096> data{};
        DWORD size = data.size();
        if (RegQueryValueExW(key, name, nullptr, nullptr, data.data(), &size) == ERROR_SUCCESS) {
            bytesRead += size;
        }
    }

    HKEY key = nullptr;
};

void readProducts(const wchar_t *path)
{
    const Key products(HKEY_LOCAL_MACHINE, path);
    for (const std::wstring &name : products.names()) {
        Key(products.key, (name + L"\\InstalledComponents").c_str()).readAll();
        const Key initialized(products.key, (name + L"\\Initialized").c_str());
        for (const wchar_t *value :
             {L"InstallDir", L"ExampleRoot", L"InstalledRevision", L"InstalledBuild"}) {
            initialized.read(value);
        }
    }
}

void readUninstallEntries(HKEY hive)
{
    const Key entries(hive, L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall");
    for (const std::wstring &name : entries.names()) {
        if (name.rfind(L"MVTec HALCON ", 0) == 0) {
            Key(entries.key, name.c_str()).read(L"InstallLocation");
        }
    }
}

void walk()
{
    readProducts(L"Software\\Wow6432Node\\MVTec\\HALCON");
    readProducts(L"Software\\MVTec\\HALCON");
    readUninstallEntries(HKEY_CURRENT_USER);
    readUninstallEntries(HKEY_LOCAL_MACHINE);
}

} // namespace

int main()
{
    const CaughtMessages messages;
    HalconKeys keys;
    for (int number = 0; number < products; ++number) {
        keys.addVersion(Keys::product64, QString("20.%1").arg(number), {"RuntimeX64", "Documentation"},
                        QString("C:\\HALCON %1").arg(number), 1);
    }
    bool found = true;
    const auto discover = [&] { found = found && getAllHalconVersions().size() == products; };
    compareTimes("discovery, 100 products", walk, discover);
    for (int number = 0; number < otherPrograms; ++number) {
        keys.addUninstallEntry(Keys::uninstallOfMachine, QString("{Other program %1}").arg(number),
                               "C:\\Other");
    }
    compareTimes("discovery, 2,000 other programs", walk, discover);
    if (!found || bytesRead == 0) {
        std::fprintf(stderr, "discovery-bench: not all products were found\n");
        return 1;
    }
    return 0;
}
