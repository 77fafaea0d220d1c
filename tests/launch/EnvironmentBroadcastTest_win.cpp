#include "launch/EnvironmentBroadcast.h"
#include "tests/launch/EnvironmentBroadcastWindow.h"
#include "tests/support/Patience.h"

#include <QtTest>

#include <windows.h>

namespace {

HWND hangingWindow()
{
    return FindWindowW(L"BroadcastWindow", L"hang");
}

} // namespace

class EnvironmentBroadcastTest : public QObject {
    Q_OBJECT

private slots:
    void otherProcessesHearIt();
    void everyCallIsOneMessage();
    void windowThatHangs();
    void windowThatHasJustStoppedAnswering();
};

void EnvironmentBroadcastTest::otherProcessesHearIt()
{
    EnvironmentBroadcastWindow one;
    EnvironmentBroadcastWindow another;

    QVERIFY(broadcastEnvironmentChange());

    const QStringList heard{"wParam 0, text Environment"};
    QCOMPARE(one.closeAndTakeLines(), heard);
    QCOMPARE(another.closeAndTakeLines(), heard);
}

void EnvironmentBroadcastTest::everyCallIsOneMessage()
{
    EnvironmentBroadcastWindow window;

    QVERIFY(broadcastEnvironmentChange());
    QVERIFY(broadcastEnvironmentChange());

    QCOMPARE(window.closeAndTakeLines(),
             (QStringList{"wParam 0, text Environment", "wParam 0, text Environment"}));
}

/// "SendMessageTimeout does not provide information about individual windows timing out if HWND_BROADCAST is
/// used", says Windows' documentation: whatever a window does, the broadcast succeeds. A window that is known
/// to hang is skipped.
void EnvironmentBroadcastTest::windowThatHangs()
{
    const EnvironmentBroadcastWindow hanging(EnvironmentBroadcastWindow::Manner::Hangs);
    EnvironmentBroadcastWindow listening;
    EVENTUALLY_VERIFY(IsHungAppWindow(hangingWindow()) != 0);

    QVERIFY(broadcastEnvironmentChange());

    QCOMPARE(listening.closeAndTakeLines(), QStringList{"wParam 0, text Environment"});
}

/// A window that may still answer gets the time to do so.
void EnvironmentBroadcastTest::windowThatHasJustStoppedAnswering()
{
    const EnvironmentBroadcastWindow hanging(EnvironmentBroadcastWindow::Manner::Hangs);
    EnvironmentBroadcastWindow listening;
    QVERIFY(IsHungAppWindow(hangingWindow()) == 0);

    QVERIFY(broadcastEnvironmentChange());

    QCOMPARE(listening.closeAndTakeLines(), QStringList{"wParam 0, text Environment"});
}

QTEST_GUILESS_MAIN(EnvironmentBroadcastTest)

#include "EnvironmentBroadcastTest_win.moc"
