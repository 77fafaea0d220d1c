#include "tests/support/SystemErrors.h"

#include <windows.h>

#include <array>

static_assert(WindowsError::fileNotFound == ERROR_FILE_NOT_FOUND);
static_assert(WindowsError::accessDenied == ERROR_ACCESS_DENIED);
static_assert(WindowsError::badExeFormat == ERROR_BAD_EXE_FORMAT);

QString rawSystemErrorText(quint32 code)
{
    std::array<wchar_t, 1024> buffer = {};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM, nullptr,
                                        code, 0, buffer.data(), DWORD(buffer.size()), nullptr);
    return QString::fromWCharArray(buffer.data(), int(length));
}

QString createProcessErrorLine(quint32 code)
{
    return "CreateProcess failed: " + rawSystemErrorText(code).trimmed();
}
