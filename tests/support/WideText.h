#pragma once

#include <QString>

/// The characters of @p text for a call of Win32, valid as long as @p text is. Windows only.
inline const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}
