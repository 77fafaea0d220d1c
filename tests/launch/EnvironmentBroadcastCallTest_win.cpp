// The program's system call to broadcast the change, and the handling of a broadcast that fails.

#include "launch/EnvironmentBroadcast.h"
#include "launch/PermanentSwitch.h"
#include "tests/support/Installations.h"
#include "tests/support/Rows.h"
#include "tests/support/SystemErrors.h"

#include <QtTest>

#include <windows.h>

#include <shellapi.h>

namespace {

constexpr DWORD errorOfTheBroadcast = ERROR_TIMEOUT;

LRESULT answer = 1;
QStringList asked;

LRESULT WINAPI answerOfTheSystem(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT flags,
                                 UINT timeout, PDWORD_PTR result)
{
    const auto *text = reinterpret_cast<const wchar_t *>(lParam);
    asked << QString("window: %1").arg(reinterpret_cast<quintptr>(window))
          << QString("message: %1").arg(message) << QString("wParam: %1").arg(wParam)
          << "text: " + QString::fromWCharArray(text) << QString("flags: %1").arg(flags)
          << QString("timeout: %1").arg(timeout)
          << QString("result: ") + (result != nullptr ? "given" : "null");
    SetLastError(answer == 0 ? errorOfTheBroadcast : ERROR_SUCCESS);
    return answer;
}

/// Answers as the shell does when the user declines, so that nothing is started.
BOOL WINAPI declined(SHELLEXECUTEINFOW * /*info*/)
{
    SetLastError(ERROR_CANCELLED);
    return FALSE;
}

} // namespace

/// Fakes of the imports through which the program calls the system.
extern "C" {
extern decltype(&SendMessageTimeoutW) sendMessageTimeout asm("__imp_SendMessageTimeoutW");
decltype(&SendMessageTimeoutW) sendMessageTimeout = &answerOfTheSystem;
extern BOOL(WINAPI *shellExecute)(SHELLEXECUTEINFOW *) asm("__imp_ShellExecuteExW");
BOOL(WINAPI *shellExecute)(SHELLEXECUTEINFOW *) = &declined;
}

class EnvironmentBroadcastCallTest : public QObject {
    Q_OBJECT

private slots:
    void call_data()
    {
        columns<int, bool>("answered", "expected");

        row("failure", 0, false);
        row("success", 1, true);
        row("any other number", -1, true);
    }

    void call()
    {
        QFETCH(int, answered);
        answer = answered;
        asked.clear();
        QTEST(broadcastEnvironmentChange(), "expected");
        QCOMPARE(asked, (QStringList{"window: 65535", "message: 26", "wParam: 0", "text: Environment",
                                     "flags: 2", "timeout: 5000", "result: null"}));
    }

    void failureIsReported()
    {
        QStringList lines;
        answer = 0;

        QVERIFY(!permanentSwitch(installationIn("C:\\H"), true, false, false, &lines));

        QCOMPARE(lines.mid(lines.size() - 2),
                 (QStringList{"broadcast environment updated message (WM_SETTINGCHANGE)",
                              "Error in broadcasting environment updated message: " +
                                  rawSystemErrorText(errorOfTheBroadcast).trimmed()}));
    }
};

QTEST_GUILESS_MAIN(EnvironmentBroadcastCallTest)

#include "EnvironmentBroadcastCallTest_win.moc"
