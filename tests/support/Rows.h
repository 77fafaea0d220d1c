#pragma once

#include <QTest>

/// Adds a row to a table of test data: its name, and the values of its columns.
template <typename... Values>
void row(const char *name, const Values &...values)
{
    (QTest::newRow(name) << ... << values);
}

/// The type of a column's name, whatever the type of the column.
template <typename Type>
struct ColumnName {
    using Text = const char *;
};

/// Makes the columns of a table of test data. Returns row() for values of these types, which converts what is
/// of another type:
///
///     const auto row = columns<QString, QByteArray>("name", "bytes");
template <typename... Types>
auto columns(typename ColumnName<Types>::Text... names)
{
    (QTest::addColumn<Types>(names), ...);
    return &row<Types...>;
}
