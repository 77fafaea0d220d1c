#include "tests/companions/helper/HelperMachine.h"
#include "tests/companions/TestConsole.h"
#include "tests/support/Patience.h"
#include "tests/support/ProjectVersion.h"
#include "tests/support/WideText.h"

#include <QFileInfo>
#include <QtTest>

#include <windows.h>

#include <shellapi.h>

#include <thread>

using namespace HelperMachine;

namespace {

const QByteArray helpText =
    "Usage: qz_com_helper --env NAME=\"VALUE\" [--env NAME=\"VALUE\"]... [--x86|--x64 [\"LIBRARY\"]...]\r\n"
    "       qz_com_helper --copy=\"DESTINATION\" \"SOURCE\"\r\n"
    "       qz_com_helper --help\r\n"
    "       qz_com_helper --version\r\n"
    "\r\n"
    "Does for Corvanta for HALCON what needs an administrator's rights.\r\n"
    "\r\n"
    "  --env NAME=\"VALUE\"  sets a variable for the whole machine: HALCONROOT, HALCONARCH,\r\n"
    "                      HALCONIMAGES or HALCONEXAMPLES\r\n"
    "  --x86, --x64        registers the LIBRARYs that follow, with the 32-bit or the 64-bit\r\n"
    "                      regsvr32: halconx.dll, halconxxl.dll, hdevenginex.dll,\r\n"
    "                      hdevenginexxl.dll\r\n"
    "  --copy=\"DESTINATION\" \"SOURCE\"\r\n"
    "                      copies a licence file into a directory named license\r\n"
    "\r\n"
    "Values and paths stand in quotes and reach to the next quote; paths are absolute. Everything\r\n"
    "is checked before anything is changed.\r\n"
    "\r\n"
    "Exit codes:\r\n"
    "  0  done\r\n"
    "  1  an internal error; nothing was changed\r\n"
    "  2  refused; nothing was changed\r\n"
    "  3  a variable could not be set; all are as they were\r\n"
    "  4  a variable could not be set, and not all are as they were\r\n"
    "  5  the variables are set, but not every library is registered\r\n"
    "  6  the file could not be copied; the old one holds what it held\r\n";

const QByteArray versionText = "qz_com_helper " + projectVersion().toUtf8() + " (Corvanta for HALCON)\r\n";

/// The refusal of a line that sets this variable.
const QString noPath = "The variable \"PATH\" is none of HALCON's.";

/// The texts in a message box, one after the other.
QString textsIn(HWND box)
{
    QString texts;
    HWND text = nullptr;
    while ((text = FindWindowExW(box, text, L"Static", nullptr)) != nullptr) {
        wchar_t buffer[1000] = {};
        GetWindowTextW(text, buffer, 1000);
        texts += QString::fromWCharArray(buffer);
    }
    return texts;
}

/// Answers the helper's next message box with its button and returns its text; empty when none opens within
/// a minute.
QString answerBox()
{
    for (int i = 0; i < 600; ++i) {
        const HWND window = FindWindowW(L"#32770", L"Corvanta for HALCON");
        if (window != nullptr && IsWindowVisible(window) != 0) {
            QString text = textsIn(window);
            SendMessageW(window, WM_COMMAND, IDOK, 0);
            return text;
        }
        Sleep(100);
    }
    return QString();
}

/// The exit code of the helper when the shell starts it.
DWORD runByShell(const wchar_t *arguments)
{
    const QString program = QString(HELPER_EXECUTABLE).replace('/', '\\');
    SHELLEXECUTEINFOW info = {};
    info.cbSize = sizeof(info);
    info.fMask = SEE_MASK_NOCLOSEPROCESS;
    info.lpVerb = L"open";
    info.lpFile = wide(program);
    info.lpParameters = arguments;
    info.nShow = SW_HIDE;
    DWORD code = 999;
    if (ShellExecuteExW(&info) != 0) {
        WaitForSingleObject(info.hProcess, patienceMilliseconds);
        GetExitCodeProcess(info.hProcess, &code);
        CloseHandle(info.hProcess);
    }
    return code;
}

} // namespace

class HelperProgramTest : public QObject {
    Q_OBJECT

private slots:
    /// Too small to contain Qt.
    void isSmall() { QVERIFY(QFileInfo(HELPER_EXECUTABLE).size() < 1000000); }

    void printsIntoAPipe()
    {
        QCOMPARE(run("--help"), (ProgramResult{0, helpText, ""}));
        QCOMPARE(run("--version"), (ProgramResult{0, versionText, ""}));
    }

    void printsOnAConsole()
    {
        const TestConsole console;
        const auto exitCode = [](const QString &arguments) {
            QProcess process;
            process.setProcessChannelMode(QProcess::ForwardedChannels);
            return runProgram(process, HELPER_EXECUTABLE, arguments).exitCode;
        };

        QCOMPARE(exitCode("--version"), 0);
        QCOMPARE(exitCode("--help"), 0);
        QCOMPARE(exitCode("--größe"), 2);

        QCOMPARE(console.lines().join("\r\n").toUtf8(),
                 versionText + helpText + refused("The arguments are not of a known form.").errors);
    }

    void startedByTheShell()
    {
        QCOMPARE(runByShell(L"--env HALCONROOT=\"C:\\By the shell\\\" --env HALCONARCH=\"x64-win64\" "
                            L"--env HALCONIMAGES=\"\" --env HALCONEXAMPLES=\"\" "),
                 DWORD(0));
        QCOMPARE(values(environmentKey)["HALCONROOT"], plainText("C:\\By the shell\\"));
        QCOMPARE(values(environmentKey)["HALCONEXAMPLES"], plainText(""));
        QCOMPARE(runByShell(L"--env PATH=\"C:\\H\" "), DWORD(2));
    }

    void boxOnAnErrorWhenVisible()
    {
        QString text;
        std::thread user([&text] { text = answerBox(); });
        const ProgramResult result = run("--env PATH=\"C:\\H\" ", Window::visible);
        user.join();

        QCOMPARE(result.exitCode, 2);
        QCOMPARE(text, "The request was refused. Nothing was changed.\r\n" + noPath);
    }

    /// A message box would wait for its answer.
    void noBoxWhenHiddenOrWithoutAnError()
    {
        QCOMPARE(run("--env PATH=\"C:\\H\" ", Window::hidden), refused(noPath));
        QCOMPARE(run("--env PATH=\"C:\\H\" ", Window::unsaid), refused(noPath));
        QCOMPARE(run("--env HALCONROOT=\"C:\\H\" ", Window::visible), done());
        QCOMPARE(run("--help", Window::visible).exitCode, 0);
    }
};

QTEST_GUILESS_MAIN(HelperProgramTest)

#include "HelperProgramTest_win.moc"
