#include "companions/helper/MachineEnvironment.h"

#include <windows.h>

#include <userenv.h>

#include <array>

namespace {

template <typename Function>
Function *functionOf(void *library, const char *name)
{
    return library == nullptr ? nullptr
                              : reinterpret_cast<Function *>(reinterpret_cast<void *>(
                                    GetProcAddress(static_cast<HMODULE>(library), name)));
}

/// Windows takes where it lies itself from the variables of the process that asks, and makes other variables with it.
bool setSystemDirectories()
{
    std::array<wchar_t, MAX_PATH> directory = {};
    const UINT length = GetSystemWindowsDirectoryW(directory.data(), static_cast<UINT>(directory.size()));
    if (length < 2 || length >= directory.size() ||
        SetEnvironmentVariableW(L"SystemRoot", directory.data()) == 0) {
        return false;
    }
    directory[2] = L'\0';
    return SetEnvironmentVariableW(L"SystemDrive", directory.data()) != 0;
}

} // namespace

MachineEnvironment::MachineEnvironment()
{
    if (!setSystemDirectories()) {
        return;
    }
    // Not among the libraries that the program starts with: those are looked for before it can say where.
    library = LoadLibraryExW(L"userenv.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    auto *const create = functionOf<decltype(CreateEnvironmentBlock)>(library, "CreateEnvironmentBlock");
    if (create != nullptr && create(&variables, nullptr, FALSE) == 0) {
        variables = nullptr;
    }
}

MachineEnvironment::~MachineEnvironment()
{
    auto *const destroy = functionOf<decltype(DestroyEnvironmentBlock)>(library, "DestroyEnvironmentBlock");
    if (variables != nullptr && destroy != nullptr) {
        destroy(variables);
    }
    if (library != nullptr) {
        FreeLibrary(static_cast<HMODULE>(library));
    }
}
