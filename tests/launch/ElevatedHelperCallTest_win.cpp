// The program's call of the shell to start the helper. A fake shell answers as when the user declines, which
// Wine never asks, or as when it has started something without a process of its own.

#include "launch/ElevatedHelper.h"
#include "launch/PermanentSwitch.h"

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
    void init();
    void everyField_data();
    void everyField();
    void result_data();
    void result();
    void declinedFailsTheSwitch();
};

void ElevatedHelperCallTest::init()
{
    answer = FALSE;
    askedFor.clear();
}

void ElevatedHelperCallTest::everyField_data()
{
    QTest::addColumn<QString>("executable");
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<bool>("show");
    QTest::addColumn<bool>("wait");
    QTest::addColumn<QStringList>("expected"); // file, parameters and show command

    QTest::newRow("shown") << "C:\\helper.exe"
                           << "--x64 \"a b\"" << true << true
                           << QStringList{"\"C:\\helper.exe\"", "\"--x64 \"a b\"\"", "5"};
    QTest::newRow("hidden") << "C:\\helper.exe"
                            << "--x64" << false << true
                            << QStringList{"\"C:\\helper.exe\"", "\"--x64\"", "0"};
    QTest::newRow("not waited for") << "C:\\helper.exe"
                                    << "--x64" << true << false
                                    << QStringList{"\"C:\\helper.exe\"", "\"--x64\"", "5"};
    QTest::newRow("no arguments") << "C:\\helper.exe"
                                  << "" << true << true << QStringList{"\"C:\\helper.exe\"", "null", "5"};
    QTest::newRow("nothing") << ""
                             << "" << false << true << QStringList{"null", "null", "0"};
}

void ElevatedHelperCallTest::everyField()
{
    QFETCH(QString, executable);
    QFETCH(QString, arguments);
    QFETCH(bool, show);
    QFETCH(bool, wait);
    QFETCH(QStringList, expected);

    runElevated(executable, arguments, show, wait);

    QCOMPARE(askedFor, (QStringList{"size: 112", "mask: 64", "window: null", "verb: \"open\"",
                                    "file: " + expected.at(0), "parameters: " + expected.at(1),
                                    "directory: \"" + QCoreApplication::applicationDirPath() + '"',
                                    "show: " + expected.at(2), "instance: null", "item: null", "class: null",
                                    "class key: null", "hot key: 0", "monitor: null", "process: null"}));
}

void ElevatedHelperCallTest::result_data()
{
    QTest::addColumn<bool>("started"); // without a process
    QTest::addColumn<bool>("wait");
    QTest::addColumn<int>("expected");

    QTest::newRow("declined, waiting") << false << true << -1;
    QTest::newRow("declined, without waiting") << false << false << -1;
    QTest::newRow("no process, waiting") << true << true << -1;
    QTest::newRow("no process, without waiting") << true << false << 0;
}

void ElevatedHelperCallTest::result()
{
    QFETCH(bool, started);
    QFETCH(bool, wait);
    answer = started ? TRUE : FALSE;
    QTEST(runElevated("C:\\helper.exe", "--x64 a", true, wait), "expected");
    QVERIFY(!askedFor.isEmpty());
}

void ElevatedHelperCallTest::declinedFailsTheSwitch()
{
    HalconInstallation installation(13, 0, 0, 0);
    installation.installDir = "C:\\H";
    installation.arch = "x64-win64";
    QStringList lines;
    QVERIFY(!permanentSwitch(installation, true, false, false, &lines));
    QVERIFY(askedFor.contains("file: \"" + helperExecutablePath() + '"'));
    QVERIFY(askedFor.contains("parameters: \"" + helperArguments(installation, false, false) + '"'));
    QVERIFY(askedFor.contains("show: 5"));
    QCOMPARE(lines.mid(lines.size() - 2),
             (QStringList{"helper process returned with value -1. This indicates an error in the execution!",
                          "broadcast environment updated message (WM_SETTINGCHANGE)"}));
}

QTEST_MAIN(ElevatedHelperCallTest)

#include "ElevatedHelperCallTest_win.moc"
