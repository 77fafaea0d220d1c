// Windows asks before it lets a program have administrator rights. Here the shell answers as it does when the user
// declines, which Wine never asks for.

#include "launch/ElevatedHelper.h"
#include "launch/PermanentSwitch.h"

#include <QtTest>

#include <windows.h>

#include <shellapi.h>

namespace {

QString askedFor;

BOOL WINAPI declined(SHELLEXECUTEINFOW *info)
{
    askedFor = QString::fromWCharArray(info->lpFile) + ' ' + QString::fromWCharArray(info->lpParameters);
    SetLastError(ERROR_CANCELLED);
    return FALSE;
}

} // namespace

/// What the program calls the shell through, in place of the import library's.
extern "C" {
extern BOOL(WINAPI *shellExecute)(SHELLEXECUTEINFOW *) asm("__imp_ShellExecuteExW");
BOOL(WINAPI *shellExecute)(SHELLEXECUTEINFOW *) = &declined;
}

class ElevatedHelperDeclinedTest : public QObject {
    Q_OBJECT

private slots:
    void init() { askedFor.clear(); }
    void isNotStarted_data();
    void isNotStarted();
    void failsTheSwitch();
};

void ElevatedHelperDeclinedTest::isNotStarted_data()
{
    QTest::addColumn<bool>("wait");

    QTest::newRow("waiting") << true;
    QTest::newRow("without waiting") << false;
}

void ElevatedHelperDeclinedTest::isNotStarted()
{
    QFETCH(bool, wait);
    QCOMPARE(runElevated("C:\\helper.exe", "--x64 a", true, wait), -1);
    QCOMPARE(askedFor, QString("C:\\helper.exe --x64 a"));
}

void ElevatedHelperDeclinedTest::failsTheSwitch()
{
    HalconInstallation installation(13, 0, 0, 0);
    installation.installDir = "C:\\H";
    installation.arch = "x64-win64";
    QStringList lines;
    QVERIFY(!permanentSwitch(installation, true, false, false, &lines));
    QCOMPARE(askedFor, helperExecutablePath() + ' ' + helperArguments(installation, false, false));
    QCOMPARE(lines.mid(lines.size() - 2),
             (QStringList{"helper process returned with value -1. This indicates an error in the execution!",
                          "broadcast environment updated message (WM_SETTINGCHANGE)"}));
}

QTEST_MAIN(ElevatedHelperDeclinedTest)

#include "ElevatedHelperDeclinedTest_win.moc"
