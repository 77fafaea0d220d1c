#include "companions/helper/LibraryRegistration.h"

#include "companions/common/WindowsHandle.h"
#include "companions/helper/MachineEnvironment.h"

#include <windows.h>

#include <array>

namespace {

std::wstring directoryFrom(UINT(WINAPI *function)(LPWSTR, UINT))
{
    std::array<wchar_t, MAX_PATH> buffer = {};
    const UINT length = function(buffer.data(), static_cast<UINT>(buffer.size()));
    return length > 0 && length < buffer.size() ? std::wstring(buffer.data(), length) : std::wstring();
}

/// Starts a program in the system's directory, where it finds no files but the system's, without a window.
WindowsHandle startHidden(const std::wstring &program, std::wstring commandLine)
{
    const std::wstring directory = directoryFrom(&GetSystemDirectoryW);
    const MachineEnvironment environment;
    if (directory.empty() || environment.block() == nullptr) {
        return {};
    }
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_HIDE;
    PROCESS_INFORMATION process = {};
    if (CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                       CREATE_NO_WINDOW | CREATE_UNICODE_ENVIRONMENT, environment.block(), directory.c_str(),
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
        // Until then the library may still be in use. A process that does not end is not waited for for ever.
        constexpr DWORD endLimit = 5000;
        WaitForSingleObject(process.get(), endLimit);
        return L"took too long and was ended";
    }
    DWORD exitCode = 1;
    return GetExitCodeProcess(process.get(), &exitCode) != 0 && exitCode == 0 ? L"" : L"failed";
}
