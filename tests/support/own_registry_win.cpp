// Compiled into every Windows test program. Under Wine each program has a prefix, and so a registry, of its
// own. On a shared Windows the variable CORVANTA_TEST_REGISTRY provides one: it names a key below
// HKEY_CURRENT_USER, such as "Software\Corvanta tests\discovery.registry". That key is created afresh, and
// the program finds and creates in it everything below HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER. Other
// processes, even its children, see the real registry; whoever sets the variable removes the key.

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

void require(LSTATUS status, const wchar_t *what)
{
    if (status != ERROR_SUCCESS) {
        std::fwprintf(stderr, L"no registry of its own for this test: %ls: error %ld\n", what, status);
        std::exit(EXIT_FAILURE);
    }
}

HKEY madeKey(HKEY parent, const std::wstring &path)
{
    HKEY key = nullptr;
    require(RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
            path.c_str());
    return key;
}

/// The keys that Windows itself reads in a process: without them there are no sockets, no known folders and no
/// variables of the machine.
const struct {
    HKEY root;
    const wchar_t *path;
} keptKeys[] = {
    {HKEY_LOCAL_MACHINE, L"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment"},
    {HKEY_LOCAL_MACHINE, L"SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters"},
    {HKEY_LOCAL_MACHINE, L"SYSTEM\\CurrentControlSet\\Services\\Tcpip6\\Parameters"},
    {HKEY_LOCAL_MACHINE, L"SYSTEM\\CurrentControlSet\\Services\\Winsock"},
    {HKEY_LOCAL_MACHINE, L"SYSTEM\\CurrentControlSet\\Services\\WinSock2"},
    {HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\FolderDescriptions"},
    {HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList"},
    {HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders"},
    {HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders"},
};

/// Copies those keys of one root that exist on this machine.
void copyKeptKeys(HKEY root, HKEY target)
{
    for (const auto &kept : keptKeys) {
        if (kept.root != root) {
            continue;
        }
        HKEY source = nullptr;
        const LSTATUS opened = RegOpenKeyExW(root, kept.path, 0, KEY_READ, &source);
        if (opened == ERROR_FILE_NOT_FOUND) {
            continue;
        }
        require(opened, kept.path);
        const HKEY copy = madeKey(target, kept.path);
        require(RegCopyTreeW(source, nullptr, copy), kept.path);
        RegCloseKey(copy);
        RegCloseKey(source);
    }
}

bool giveOwnRegistry()
{
    wchar_t path[256] = {};
    const DWORD length = GetEnvironmentVariableW(L"CORVANTA_TEST_REGISTRY", path, DWORD(std::size(path)));
    if (length == 0) {
        return false;
    }
    require(length < std::size(path) ? ERROR_SUCCESS : ERROR_INSUFFICIENT_BUFFER, L"CORVANTA_TEST_REGISTRY");
    const LSTATUS removed = RegDeleteTreeW(HKEY_CURRENT_USER, path);
    require(removed == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : removed, path);

    // Both are filled before either is redirected.
    const HKEY own = madeKey(HKEY_CURRENT_USER, path);
    const HKEY machine = madeKey(own, L"HKEY_LOCAL_MACHINE");
    const HKEY user = madeKey(own, L"HKEY_CURRENT_USER");
    copyKeptKeys(HKEY_LOCAL_MACHINE, machine);
    copyKeptKeys(HKEY_CURRENT_USER, user);
    require(RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine), L"HKEY_LOCAL_MACHINE");
    require(RegOverridePredefKey(HKEY_CURRENT_USER, user), L"HKEY_CURRENT_USER");
    RegCloseKey(user);
    RegCloseKey(machine);
    RegCloseKey(own);
    return true;
}

// Runs before main(), and so before the test or Qt opens a key.
[[maybe_unused]] const bool hasOwnRegistry = giveOwnRegistry();

} // namespace
