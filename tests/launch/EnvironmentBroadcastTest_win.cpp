#include "launch/EnvironmentBroadcast.h"
#include "tests/launch/EnvironmentBroadcastWindow.h"
#include "tests/support/Patience.h"
#include "tests/support/Rows.h"

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
    void otherProcessesHearEveryCall()
    {
        EnvironmentBroadcastWindow one;
        EnvironmentBroadcastWindow another;

        QVERIFY(broadcastEnvironmentChange());
        QVERIFY(broadcastEnvironmentChange());

        const QStringList heard{"wParam 0, text Environment", "wParam 0, text Environment"};
        QCOMPARE(one.closeAndTakeLines(), heard);
        QCOMPARE(another.closeAndTakeLines(), heard);
    }

    /// "SendMessageTimeout does not provide information about individual windows timing out if HWND_BROADCAST
    /// is used", says Windows' documentation: whatever a window does, the broadcast succeeds. A window that
    /// may still answer gets the time to do so; one that is known to hang is skipped.
    void windowThatHangs_data()
    {
        columns<bool>("known");

        row("just now", false);
        row("known to hang", true);
    }

    void windowThatHangs()
    {
        QFETCH(bool, known);
        const EnvironmentBroadcastWindow hanging(EnvironmentBroadcastWindow::Manner::Hangs);
        EnvironmentBroadcastWindow listening;
        if (known) {
            EVENTUALLY_VERIFY(IsHungAppWindow(hangingWindow()) != 0);
        } else {
            QVERIFY(IsHungAppWindow(hangingWindow()) == 0);
        }

        QVERIFY(broadcastEnvironmentChange());

        QCOMPARE(listening.closeAndTakeLines(), QStringList{"wParam 0, text Environment"});
    }
};

QTEST_GUILESS_MAIN(EnvironmentBroadcastTest)

#include "EnvironmentBroadcastTest_win.moc"
