#pragma once

#include <QtTest>

/// How long a test waits for what must happen: far longer than a busy machine needs. Qt Test's default of 5 s
/// is not always enough.
constexpr int patienceMilliseconds = 60000;

/// QTRY_VERIFY and QTRY_COMPARE with this timeout.
#define EVENTUALLY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT((condition), patienceMilliseconds)
#define EVENTUALLY_COMPARE(actual, expected)                                                                 \
    QTRY_COMPARE_WITH_TIMEOUT((actual), (expected), patienceMilliseconds)
