#pragma once

#include <QtTest>

/// How long a test waits for what must happen: far longer than a busy machine takes. Qt Test's own 5 s are not always
/// enough.
constexpr int patienceMilliseconds = 60000;

/// QTRY_VERIFY and QTRY_COMPARE with that patience.
#define EVENTUALLY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT((condition), patienceMilliseconds)
#define EVENTUALLY_COMPARE(actual, expected)                                                                 \
    QTRY_COMPARE_WITH_TIMEOUT((actual), (expected), patienceMilliseconds)
