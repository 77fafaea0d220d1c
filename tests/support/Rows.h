#pragma once

#include <QTest>

/// Adds a row to a table of test data: its name, and the values of its columns.
template <typename... Values>
void row(const char *name, const Values &...values)
{
    (QTest::newRow(name) << ... << values);
}
