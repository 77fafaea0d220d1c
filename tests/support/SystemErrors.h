#pragma once

#include <QString>

/// The system's own text for a Windows error, as it comes, with its closing line break; empty when it has
/// none. Obtained independently of the code under test.
QString rawSystemErrorText(quint32 code);

/// The line that a start reports when it failed with the Windows error @p code.
QString createProcessErrorLine(quint32 code);

/// Some Windows errors.
namespace WindowsError {

constexpr quint32 fileNotFound = 2;
constexpr quint32 accessDenied = 5;
constexpr quint32 badExeFormat = 193;
/// Windows has no text for it.
constexpr quint32 withoutText = 12345;

} // namespace WindowsError
