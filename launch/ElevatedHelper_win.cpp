#include "launch/ElevatedHelper.h"

#include "companions/common/WindowsHandle.h"

#include <QCoreApplication>

#include <windows.h>

#include <shellapi.h>

namespace {

/// Null for an empty string, which tells the shell that there is none.
const wchar_t *wideOrNull(const QString &text)
{
    return text.isEmpty() ? nullptr : reinterpret_cast<const wchar_t *>(text.utf16());
}

} // namespace

int runElevated(const QString &executable, const QString &arguments, bool show, bool wait)
{
    constexpr int notStarted = -1;
    const QString directory = QCoreApplication::applicationDirPath();

    SHELLEXECUTEINFOW info = {};
    info.cbSize = sizeof(info);
    info.fMask = SEE_MASK_NOCLOSEPROCESS;
    info.lpVerb = L"open";
    info.lpFile = wideOrNull(executable);
    info.lpParameters = wideOrNull(arguments);
    info.lpDirectory = wideOrNull(directory);
    info.nShow = show ? SW_SHOW : SW_HIDE;
    if (ShellExecuteExW(&info) == 0) {
        return notStarted;
    }
    const WindowsHandle process(info.hProcess);
    if (!wait) {
        return 0;
    }
    DWORD exitCode = 0;
    if (!process || WaitForSingleObject(process.get(), INFINITE) != WAIT_OBJECT_0 ||
        GetExitCodeProcess(process.get(), &exitCode) == 0) {
        return notStarted;
    }
    return static_cast<int>(exitCode);
}
