#pragma once

#include <QtTest>

/// How long a test waits for what must happen: far longer than a busy machine needs. Qt Test's default of 5 s
/// is not always enough.
constexpr int patienceMilliseconds = 60000;

/// QTRY_VERIFY and QTRY_COMPARE with this timeout.
#define EVENTUALLY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT((condition), patienceMilliseconds)
#define EVENTUALLY_COMPARE(actual, expected)                                                                 \
    QTRY_COMPARE_WITH_TIMEOUT((actual), (expected), patienceMilliseconds)

/// Whether the window is on the screen before long.
template <typename Window>
bool eventuallyExposed(Window *window)
{
    return QTest::qWaitForWindowExposed(window, patienceMilliseconds);
}

/// Whether the window is the active one before long. Asks for it again and again: Wine gives the focus back
/// to the desktop when the X server tells it late that another window had lost it.
template <typename Window>
bool eventuallyActive(Window *window)
{
    const QDeadlineTimer patience(patienceMilliseconds);
    do {
        window->activateWindow();
        if (QTest::qWaitForWindowActive(window, 1000)) {
            return true;
        }
    } while (!patience.hasExpired());
    return false;
}
