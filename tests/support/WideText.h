#pragma once

#include <QString>

#include <string>

/// The characters of @p text for a call of Win32, valid as long as @p text is. Windows only.
inline const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

/// @p text as on Windows: one wchar_t for each UTF-16 unit, even where wchar_t is wider, and with lone
/// surrogates unchanged.
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
