#pragma once

#include <QString>

/// The system's message for a Windows error, with its line break at the end; empty when there is none.
/// Obtained independently of the code under test.
QString rawSystemErrorText(quint32 code);

/// The line that a start reports when it failed with the Windows error @p code.
QString createProcessErrorLine(quint32 code);

/// Some Windows errors.
namespace WindowsError {

constexpr quint32 fileNotFound = 2;
constexpr quint32 accessDenied = 5;
constexpr quint32 badExeFormat = 193;
/// Windows has no message for it.
constexpr quint32 withoutText = 12345;

} // namespace WindowsError
