#include "tests/soak/Program_win.h"

#include "tests/soak/Resources_win.h"

#include <QDir>

#include <array>

#include <windows.h>

namespace {

constexpr DWORD patience = 60000; // ms

HWND handleOf(const ProgramWindow &window)
{
    return reinterpret_cast<HWND>(window.handle);
}

QString classOf(HWND window)
{
    std::array<wchar_t, 256> name{};
    return QString::fromWCharArray(name.data(), GetClassNameW(window, name.data(), int(name.size())));
}

QString titleOf(HWND window)
{
    std::array<wchar_t, 512> title{};
    // Read from what Windows stores itself, so that a hung window cannot make this wait.
    return QString::fromWCharArray(title.data(),
                                   InternalGetWindowText(window, title.data(), int(title.size())));
}

ProgramWindow::Kind kindOf(HWND window, const QString &className)
{
    if (className == QLatin1String("#32770")) {
        return ProgramWindow::Kind::FileDialog;
    }
    if (className.contains(QLatin1String("Popup"))) {
        return ProgramWindow::Kind::Popup;
    }
    const bool canMinimize = (GetWindowLongW(window, GWL_STYLE) & WS_MINIMIZEBOX) != 0;
    return canMinimize ? ProgramWindow::Kind::Main : ProgramWindow::Kind::Dialog;
}

QRect clientOf(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    POINT corner{0, 0};
    ClientToScreen(window, &corner);
    return {corner.x, corner.y, client.right, client.bottom};
}

quint64 processorTime(HANDLE process)
{
    const auto number = [](const FILETIME &time) {
        return (quint64(time.dwHighDateTime) << 32U) | time.dwLowDateTime;
    };
    FILETIME started{};
    FILETIME ended{};
    FILETIME kernel{};
    FILETIME user{};
    GetProcessTimes(process, &started, &ended, &kernel, &user);
    return number(kernel) + number(user);
}

} // namespace

struct Program::Process {
    PROCESS_INFORMATION started{};
    HANDLE console = INVALID_HANDLE_VALUE;

    bool hasEnded() const { return WaitForSingleObject(started.hProcess, 0) == WAIT_OBJECT_0; }

    QString end() const
    {
        DWORD code = 0;
        GetExitCodeProcess(started.hProcess, &code);
        return QStringLiteral("the program ended with exit code 0x%1").arg(code, 0, 16);
    }
};

Program::Program(const QString &executable, const QString &consoleFile) : process(std::make_unique<Process>())
{
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    process->console = CreateFileW(
        reinterpret_cast<const wchar_t *>(QDir::toNativeSeparators(consoleFile).utf16()), FILE_APPEND_DATA,
        FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = process->console;
    startup.hStdError = process->console;
    const QString native = QDir::toNativeSeparators(executable);
    if (process->console == INVALID_HANDLE_VALUE ||
        CreateProcessW(reinterpret_cast<const wchar_t *>(native.utf16()), nullptr, nullptr, nullptr, TRUE, 0,
                       nullptr, nullptr, &startup, &process->started) == 0) {
        throw QStringLiteral("%1 could not be started").arg(native);
    }
}

Program::~Program()
{
    if (process->started.hProcess != nullptr) {
        if (!process->hasEnded()) {
            TerminateProcess(process->started.hProcess, 1);
        }
        CloseHandle(process->started.hThread);
        CloseHandle(process->started.hProcess);
    }
    CloseHandle(process->console);
}

QVector<ProgramWindow> Program::windows() const
{
    struct Search {
        DWORD process;
        QVector<ProgramWindow> found;
    } search{process->started.dwProcessId, {}};
    EnumWindows(
        [](HWND window, LPARAM parameter) -> BOOL {
            auto *result = reinterpret_cast<Search *>(parameter);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            const QString className = classOf(window);
            if (owner == result->process && IsWindowVisible(window) != 0 &&
                !className.contains(QLatin1String("ToolTip"))) {
                result->found.append({reinterpret_cast<quintptr>(window), kindOf(window, className),
                                      IsWindowEnabled(window) != 0, titleOf(window), clientOf(window)});
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

QString Program::waitUntilIdle() const
{
    constexpr DWORD pause = 12; // ms; a little more than the unit in which Wine counts a process's time
    const ULONGLONG deadline = GetTickCount64() + patience;
    quint64 before = 0;
    int quiet = 0;
    while (quiet < 2) {
        Sleep(pause);
        if (process->hasEnded()) {
            return process->end();
        }
        for (const ProgramWindow &window : windows()) {
            DWORD_PTR result = 0;
            if (SendMessageTimeoutW(handleOf(window), WM_NULL, 0, 0, SMTO_NORMAL, patience, &result) == 0 &&
                IsWindow(handleOf(window)) != 0 && !process->hasEnded()) {
                return QStringLiteral("the window \"%1\" does not answer").arg(window.title);
            }
        }
        const quint64 now = processorTime(process->started.hProcess);
        quiet = now == before ? quiet + 1 : 0;
        before = now;
        if (GetTickCount64() > deadline) {
            return QStringLiteral("the program does not come to rest");
        }
    }
    return QString();
}

QString Program::waitForEnd() const
{
    if (WaitForSingleObject(process->started.hProcess, patience) != WAIT_OBJECT_0) {
        return QStringLiteral("the program does not end");
    }
    DWORD code = 1;
    GetExitCodeProcess(process->started.hProcess, &code);
    return code == 0 ? QString() : process->end();
}

Resources Program::resources() const
{
    return {countHandles(process->started.hProcess), countGdiObjects(process->started.hProcess),
            countWindows(process->started.dwProcessId), privateKilobytes(process->started.hProcess)};
}

void Program::takeKeyboard() const
{
    DWORD owner = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &owner);
    if (owner == process->started.dwProcessId) {
        return;
    }
    for (const ProgramWindow &window : windows()) {
        if (window.enabled && window.kind != ProgramWindow::Kind::Popup) {
            SetForegroundWindow(handleOf(window));
            return;
        }
    }
}

void Program::close(const ProgramWindow &window) const
{
    PostMessageW(handleOf(window), WM_CLOSE, 0, 0);
}

void Program::resize(const ProgramWindow &window, const QRect &frame) const
{
    ShowWindowAsync(handleOf(window), SW_RESTORE);
    SetWindowPos(handleOf(window), nullptr, frame.x(), frame.y(), frame.width(), frame.height(),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
}

void Program::maximize(const ProgramWindow &window) const
{
    ShowWindowAsync(handleOf(window), SW_MAXIMIZE);
}

void Program::minimizeAndRestore(const ProgramWindow &window) const
{
    ShowWindowAsync(handleOf(window), SW_MINIMIZE);
    ShowWindowAsync(handleOf(window), SW_RESTORE);
}

void Program::chooseFile(const ProgramWindow &window, const QString &file) const
{
    constexpr int nameField = 0x47C;    // cmb13, in which a file dialog of today has its field for the name
    constexpr int oldNameField = 0x480; // edt1
    for (const int field : {nameField, oldNameField}) {
        SetDlgItemTextW(handleOf(window), field, reinterpret_cast<const wchar_t *>(file.utf16()));
    }
    PostMessageW(handleOf(window), WM_COMMAND, IDOK, 0);
}
