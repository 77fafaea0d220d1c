#include "tests/companions/helper/HelperMachine.h"
#include "tests/companions/TestConsole.h"
#include "tests/support/Patience.h"
#include "tests/support/ProjectVersion.h"
#include "tests/support/WideText.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <windows.h>

#include <shellapi.h>

#include <thread>

using HelperMachine::environmentKey;
using HelperMachine::plainText;
using HelperMachine::run;
using HelperMachine::values;
using HelperMachine::Window;

namespace {

const QString helpText =
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

const QString versionText = "qz_com_helper " + projectVersion() + " (Corvanta for HALCON)\r\n";

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
        const HelperResult help = run("--help");
        QCOMPARE(QString::fromUtf8(help.output), helpText);
        QCOMPARE(help.errors, QByteArray());
        QCOMPARE(help.exitCode, 0);

        const HelperResult version = run("--version");
        QCOMPARE(QString::fromUtf8(version.output), versionText);
        QCOMPARE(version.errors, QByteArray());
        QCOMPARE(version.exitCode, 0);
    }

    void printsOnAConsole()
    {
        const TestConsole console;
        const auto start = [](const QString &arguments) {
            QProcess process;
            process.setProgram(HELPER_EXECUTABLE);
            process.setNativeArguments(arguments);
            process.setProcessChannelMode(QProcess::ForwardedChannels);
            process.start();
            return process.waitForFinished(patienceMilliseconds) ? process.exitCode() : -1;
        };

        QCOMPARE(start("--version"), 0);
        QCOMPARE(start("--help"), 0);
        QCOMPARE(start("--größe"), 2);

        QCOMPARE(console.lines().join("\r\n"),
                 versionText + helpText +
                     "qz_com_helper: The request was refused. Nothing was changed.\r\n"
                     "The arguments are not of a known form.\r\n");
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
        const HelperResult result = run("--env PATH=\"C:\\H\" ", Window::visible);
        user.join();

        QCOMPARE(result.exitCode, 2);
        QCOMPARE(text, QString("The request was refused. Nothing was changed.\r\nThe variable \"PATH\" is "
                               "none of HALCON's."));
    }

    /// A message box would wait for its answer.
    void noBoxWhenHiddenOrWithoutAnError()
    {
        QCOMPARE(run("--env PATH=\"C:\\H\" ", Window::hidden).exitCode, 2);
        QCOMPARE(run("--env PATH=\"C:\\H\" ", Window::unsaid).exitCode, 2);
        QCOMPARE(run("--env HALCONROOT=\"C:\\H\" ", Window::visible).exitCode, 0);
        QCOMPARE(run("--help", Window::visible).exitCode, 0);
    }
};

QTEST_GUILESS_MAIN(HelperProgramTest)

#include "HelperProgramTest_win.moc"
