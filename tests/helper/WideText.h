#pragma once

#include <QString>

#include <string>

/// @p text as Windows has it, one wchar_t for each UTF-16 unit, also where a wchar_t is wider, and with halves of
/// surrogate pairs left alone.
inline std::wstring toWide(const QString &text)
{
    std::wstring result;
    for (const QChar unit : text) {
        result += static_cast<wchar_t>(unit.unicode());
    }
    return result;
}

/// The reverse.
inline QString fromWide(const std::wstring &text)
{
    QString result;
    for (const wchar_t unit : text) {
        result += QChar(static_cast<ushort>(unit));
    }
    return result;
}
