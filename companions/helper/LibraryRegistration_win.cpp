#include "companions/helper/LibraryRegistration.h"

#include "companions/common/WindowsHandle.h"

#include <windows.h>

#include <userenv.h>

#include <array>
#include <memory>

namespace {

std::wstring directoryFrom(UINT(WINAPI *function)(LPWSTR, UINT))
{
    std::array<wchar_t, MAX_PATH> buffer = {};
    const UINT length = function(buffer.data(), static_cast<UINT>(buffer.size()));
    return length < buffer.size() ? std::wstring(buffer.data(), length) : std::wstring();
}

template <typename Function>
Function *functionOf(HMODULE library, const char *name)
{
    return library == nullptr
               ? nullptr
               : reinterpret_cast<Function *>(reinterpret_cast<void *>(GetProcAddress(library, name)));
}

struct DestroyBlock {
    decltype(DestroyEnvironmentBlock) *destroy = nullptr;
    void operator()(void *block) const { destroy(block); }
};

/// The variables of the machine, as Windows makes them for its own processes: the parent process cannot
/// influence them. Null when that fails.
std::unique_ptr<void, DestroyBlock> machineVariables()
{
    // Loaded here: the libraries that a program is linked to are searched for before it can restrict the
    // search.
    const HMODULE library = LoadLibraryExW(L"userenv.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    auto *const create = functionOf<decltype(CreateEnvironmentBlock)>(library, "CreateEnvironmentBlock");
    auto *const destroy = functionOf<decltype(DestroyEnvironmentBlock)>(library, "DestroyEnvironmentBlock");
    // Windows copies the path of its own directory from the variables of the calling process, and derives
    // others from it.
    const std::wstring windows = directoryFrom(&GetSystemWindowsDirectoryW);
    void *block = nullptr;
    const bool made = create != nullptr && destroy != nullptr && windows.size() > 1 &&
                      SetEnvironmentVariableW(L"SystemRoot", windows.c_str()) != 0 &&
                      SetEnvironmentVariableW(L"SystemDrive", windows.substr(0, 2).c_str()) != 0 &&
                      create(&block, nullptr, FALSE) != 0;
    return {made ? block : nullptr, DestroyBlock{destroy}};
}

/// Starts a program without a window in the system directory, where it finds only the system's files.
WindowsHandle startHidden(const std::wstring &program, std::wstring commandLine)
{
    const std::wstring directory = directoryFrom(&GetSystemDirectoryW);
    const auto variables = machineVariables();
    if (directory.empty() || variables == nullptr) {
        return {};
    }
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_HIDE;
    PROCESS_INFORMATION process = {};
    if (CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                       CREATE_NO_WINDOW | CREATE_UNICODE_ENVIRONMENT, variables.get(), directory.c_str(),
                       &startup, &process) == 0) {
        return {};
    }
    const WindowsHandle thread(process.hThread);
    return WindowsHandle(process.hProcess);
}

} // namespace

std::wstring registrationProgram(LibraryArchitecture architecture)
{
    const std::wstring directory = directoryFrom(
        architecture == LibraryArchitecture::x64 ? &GetSystemDirectoryW : &GetSystemWow64DirectoryW);
    return directory.empty() ? directory : directory + L"\\regsvr32.exe";
}

std::wstring registerLibrary(const std::wstring &regsvr32, const std::wstring &library,
                             std::chrono::milliseconds timeLimit)
{
    const WindowsHandle process = startHidden(regsvr32, registrationCommandLine(regsvr32, library));
    if (!process) {
        return L"could not be started";
    }
    if (WaitForSingleObject(process.get(), static_cast<DWORD>(timeLimit.count())) != WAIT_OBJECT_0) {
        TerminateProcess(process.get(), 1);
        // The library may be in use until the process has ended, but the wait must have a limit.
        constexpr DWORD endLimit = 5000;
        WaitForSingleObject(process.get(), endLimit);
        return L"took too long and was ended";
    }
    DWORD exitCode = 1;
    return GetExitCodeProcess(process.get(), &exitCode) != 0 && exitCode == 0 ? L"" : L"failed";
}
