#include "launch/ProcessStart.h"

#include "base/DebugLogger.h"
#include "companions/common/WindowsHandle.h"

#include <QObject>

#include <windows.h>

#include <vector>

namespace {

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

/// CreateProcessW may write into the command line it is given.
std::vector<wchar_t> writableCommandLine(const QString &text)
{
    return std::vector<wchar_t>(wide(text), wide(text) + text.size() + 1);
}

} // namespace

bool startProcess(const QString &executable, const QString &arguments, const HalconInstallation &installation,
                  QStringList *errors)
{
    const std::shared_ptr<char16_t[]> environment = buildEnvironmentBlock(variableOverrides(installation));
    std::vector<wchar_t> commandLine = writableCommandLine(arguments);
    STARTUPINFOW startupInfo = {};
    startupInfo.cb = sizeof(startupInfo);
    PROCESS_INFORMATION process = {};

    DebugLogger::instance().log(QStringLiteral("CreateProcess: ") + executable + QLatin1Char(' ') +
                                arguments);
    if (CreateProcessW(wide(executable), commandLine.data(), nullptr, nullptr, FALSE,
                       CREATE_UNICODE_ENVIRONMENT, environment.get(), nullptr, &startupInfo, &process) == 0) {
        const QString error = lastWindowsErrorText();
        if (errors != nullptr) {
            errors->append(QObject::tr("CreateProcess failed: %1").arg(error));
        }
        return false;
    }
    const WindowsHandle processHandle(process.hProcess);
    const WindowsHandle threadHandle(process.hThread);
    return true;
}
