// The program's call of the shell to start the helper. A fake shell answers as when the user declines, which
// Wine never asks, or as when it has started something without a process of its own.

#include "launch/ElevatedHelper.h"
#include "tests/support/Rows.h"

#include <QDir>
#include <QtTest>

#include <windows.h>

#include <shellapi.h>

namespace {

BOOL answer = FALSE;
QStringList askedFor;

QString quoted(const wchar_t *text)
{
    return text != nullptr ? '"' + QString::fromWCharArray(text) + '"' : QString("null");
}

QString given(const void *pointer)
{
    return pointer != nullptr ? "given" : "null";
}

BOOL WINAPI answerOfTheShell(SHELLEXECUTEINFOW *info)
{
    askedFor << "size: " + QString::number(info->cbSize) << "mask: " + QString::number(info->fMask)
             << "window: " + given(info->hwnd) << "verb: " + quoted(info->lpVerb)
             << "file: " + quoted(info->lpFile) << "parameters: " + quoted(info->lpParameters)
             << "directory: " + quoted(info->lpDirectory) << "show: " + QString::number(info->nShow)
             << "instance: " + given(info->hInstApp) << "item: " + given(info->lpIDList)
             << "class: " + quoted(info->lpClass) << "class key: " + given(info->hkeyClass)
             << "hot key: " + QString::number(info->dwHotKey) << "monitor: " + given(info->hMonitor)
             << "process: " + given(info->hProcess);
    SetLastError(ERROR_CANCELLED);
    return answer;
}

} // namespace

/// A fake of the import through which the program calls the shell.
extern "C" {
extern BOOL(WINAPI *shellExecute)(SHELLEXECUTEINFOW *) asm("__imp_ShellExecuteExW");
BOOL(WINAPI *shellExecute)(SHELLEXECUTEINFOW *) = &answerOfTheShell;
}

class ElevatedHelperCallTest : public QObject {
    Q_OBJECT

private slots:
    void call_data()
    {
        // started: without a process
        columns<QString, bool, bool, bool, int, QString, int>("arguments", "show", "wait", "started",
                                                              "result", "parameters", "showCommand");

        row("declined, waiting", "--x64 \"a b\"", true, true, false, -1, "\"--x64 \"a b\"\"", 5);
        row("declined, without waiting", "--x64", false, false, false, -1, "\"--x64\"", 0);
        row("no process, waiting", "--x64", false, true, true, -1, "\"--x64\"", 0);
        row("no process, without waiting", "", true, false, true, 0, "null", 5);
    }

    void call()
    {
        QFETCH(QString, arguments);
        QFETCH(bool, show);
        QFETCH(bool, wait);
        QFETCH(bool, started);
        QFETCH(QString, parameters);
        QFETCH(int, showCommand);
        answer = started;
        askedFor.clear();

        QTEST(runElevated("C:\\helper.exe", arguments, show, wait), "result");

        QCOMPARE(askedFor, (QStringList{"size: 112", "mask: 64", "window: null", "verb: \"open\"",
                                        "file: \"C:\\helper.exe\"", "parameters: " + parameters,
                                        "directory: \"" + QCoreApplication::applicationDirPath() + '"',
                                        "show: " + QString::number(showCommand), "instance: null",
                                        "item: null", "class: null", "class key: null", "hot key: 0",
                                        "monitor: null", "process: null"}));
    }
};

QTEST_MAIN(ElevatedHelperCallTest)

#include "ElevatedHelperCallTest_win.moc"
