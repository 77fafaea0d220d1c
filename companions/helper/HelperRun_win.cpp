#include "companions/helper/HelperRun.h"

#include "companions/common/Utf8Output.h"
#include "companions/common/WindowsHandle.h"
#include "companions/helper/HelperLine.h"
#include "companions/helper/HelperTexts.h"

#include <windows.h>

#include <exception>

namespace {

/// From now on libraries are searched for in the system directory only, and no error box waits for a user.
/// Must come first: any other call might load a library.
bool secureProcess()
{
    const bool restricted = SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32) != 0;
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    return restricted;
}

bool writeToParentConsole(const std::wstring &text)
{
    if (AttachConsole(ATTACH_PARENT_PROCESS) == 0 && GetLastError() != ERROR_ACCESS_DENIED) {
        // The parent has no console. Access is denied only to a process that has one already.
        return true;
    }
    const WindowsHandle console(CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                            nullptr));
    DWORD written = 0;
    return console &&
           WriteConsoleW(console.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0;
}

/// Writes @p text where the caller has redirected the channel to, or else to the console of the process that
/// started this one. Without either it goes nowhere. False when writing fails.
bool print(DWORD channel, const std::wstring &text)
{
    const HANDLE handle = GetStdHandle(channel);
    const DWORD type = GetFileType(handle);
    return type == FILE_TYPE_DISK || type == FILE_TYPE_PIPE ? writeUtf8(handle, text)
                                                            : writeToParentConsole(text);
}

HelperOutcome printed(const std::wstring &text)
{
    return {print(STD_OUTPUT_HANDLE, text) ? HelperExitCode::done : HelperExitCode::internalError, {}};
}

/// Whether the parent process asked for a visible window. If it said nothing, none is shown.
bool isStartedVisibly()
{
    STARTUPINFOW startup = {};
    GetStartupInfoW(&startup);
    return (startup.dwFlags & STARTF_USESHOWWINDOW) != 0 && startup.wShowWindow != SW_HIDE;
}

void tell(const HelperOutcome &outcome)
{
    const std::wstring text =
        textOf(outcome.code) + (outcome.reason.empty() ? L"" : L"\r\n" + outcome.reason);
    print(STD_ERROR_HANDLE, L"qz_com_helper: " + text + L"\r\n");
    if (isStartedVisibly()) {
        MessageBoxW(nullptr, text.c_str(), L"Corvanta for HALCON", MB_OK | MB_ICONERROR | MB_SETFOREGROUND);
    }
}

HelperOutcome perform(const HelperReading &reading)
{
    if (!reading.request) {
        return {HelperExitCode::refused, reading.refusal};
    }
    switch (reading.request->action) {
    case HelperAction::showHelp:
        return printed(helpText());
    case HelperAction::showVersion:
        return printed(versionText());
    case HelperAction::copyLicense:
        return replaceLicenseFile(reading.request->destination, reading.request->source);
    case HelperAction::setMachine:
        break;
    }
    return switchMachine(*reading.request);
}

} // namespace

HelperExitCode runHelper(const std::wstring &commandLine)
{
    if (!secureProcess()) {
        return HelperExitCode::internalError;
    }
    const HelperOutcome outcome = perform(readHelperArguments(argumentsOf(commandLine)));
    try {
        if (outcome.code != HelperExitCode::done) {
            tell(outcome);
        }
    } catch (const std::exception &) {
        // The work is done, even without the memory to report it.
        return outcome.code;
    }
    return outcome.code;
}
