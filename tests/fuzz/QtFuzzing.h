#pragma once

#include "tests/fuzz/Require.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>

/// The input of a fuzzer.
QByteArray inputOf(const std::uint8_t *data, std::size_t size);

/// @p bytes read as UTF-8; but after a byte 0xFF the next two are a code unit of UTF-16, the high byte first,
/// so that lone surrogates can occur, as they can in the registry and in the names of files.
QString textOf(const QByteArray &bytes);

/// The lines that the product has logged since the last call. The fuzzers' debug log keeps them no longer.
QStringList takeLog();

/// The warnings since the last call. Qt's debug output is off.
QStringList takeWarnings();

/// Makes a new empty directory the current one, for files that an input may name; it is the same at each
/// call.
QString temporaryDirectory();

/// Requires that both lists are equal, and prints them if they are not.
void requireSame(const QStringList &actual, const QStringList &expected, const char *property);
