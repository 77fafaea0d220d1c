// The shell as the program starts it: the program has no console, so the shell gets a window of its own.

#include "companions/common/WindowsHandle.h"
#include "launch/CommandShell.h"
#include "tests/support/Installations.h"
#include "tests/support/Patience.h"

#include <QtTest>

#include <windows.h>

#include <tlhelp32.h>

namespace {

/// The process of the command interpreter that this program has started, or 0.
DWORD interpreterProcess()
{
    const WindowsHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof(entry);
    for (BOOL more = Process32FirstW(snapshot.get(), &entry); more != 0;
         more = Process32NextW(snapshot.get(), &entry)) {
        if (entry.th32ParentProcessID == GetCurrentProcessId() &&
            QString::fromWCharArray(entry.szExeFile).compare("cmd.exe", Qt::CaseInsensitive) == 0) {
            return entry.th32ProcessID;
        }
    }
    return 0;
}

/// Ends a process with its owner.
class EndedProcess {
public:
    explicit EndedProcess(DWORD id) : process(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id)) {}
    EndedProcess(const EndedProcess &) = delete;
    EndedProcess &operator=(const EndedProcess &) = delete;
    ~EndedProcess()
    {
        if (process.get() != nullptr) {
            TerminateProcess(process.get(), 1);
            WaitForSingleObject(process.get(), INFINITE);
        }
    }
    bool isRunning() const { return WaitForSingleObject(process.get(), 0) == WAIT_TIMEOUT; }

private:
    WindowsHandle process;
};

} // namespace

class CommandShellWindowTest : public QObject {
    Q_OBJECT

private slots:
    void windowOfItsOwn()
    {
        FreeConsole();
        const QTemporaryDir directory;
        const HalconInstallation installation = installationIn(QDir::toNativeSeparators(directory.path()));
        // The space that separates the command from the next one is part of the title.
        const wchar_t *title = L"HALCON 20.11.1.3 (x64-win64) ";
        QCOMPARE(FindWindowW(nullptr, title), HWND(nullptr));
        QStringList errors;

        QVERIFY2(startShell(installation, VisualStudioVersion(), &errors), qPrintable(errors.join('\n')));

        const EndedProcess shell(interpreterProcess());
        HWND window = nullptr;
        EVENTUALLY_VERIFY((window = FindWindowW(nullptr, title)) != nullptr);
        EVENTUALLY_VERIFY(IsWindowVisible(window) != 0);
        QVERIFY(shell.isRunning());
    }
};

QTEST_GUILESS_MAIN(CommandShellWindowTest)

#include "CommandShellWindowTest_win.moc"
