#include "companions/helper/HelperOutput.h"

#include "companions/common/Utf8Output.h"
#include "companions/common/WindowsHandle.h"

#include <windows.h>

namespace {

bool isRedirected(HANDLE handle)
{
    const DWORD type = GetFileType(handle);
    return type == FILE_TYPE_DISK || type == FILE_TYPE_PIPE;
}

bool writeToParentConsole(const std::wstring &text)
{
    if (AttachConsole(ATTACH_PARENT_PROCESS) == 0 && GetLastError() != ERROR_ACCESS_DENIED) {
        // There is none; a process that has one already is denied another.
        return true;
    }
    const WindowsHandle console(CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                            nullptr));
    DWORD written = 0;
    return console &&
           WriteConsoleW(console.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0;
}

} // namespace

bool printText(HelperChannel channel, const std::wstring &text)
{
    const HANDLE handle =
        GetStdHandle(channel == HelperChannel::standard ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
    return isRedirected(handle) ? writeUtf8(handle, text) : writeToParentConsole(text);
}

bool isStartedVisibly()
{
    STARTUPINFOW startup = {};
    GetStartupInfoW(&startup);
    return (startup.dwFlags & STARTF_USESHOWWINDOW) != 0 && startup.wShowWindow != SW_HIDE;
}

void showErrorBox(const std::wstring &text)
{
    MessageBoxW(nullptr, text.c_str(), L"Corvanta for HALCON", MB_OK | MB_ICONERROR | MB_SETFOREGROUND);
}
