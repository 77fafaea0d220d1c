#pragma once

#include <string>

/// Writes @p text to an open file or pipe as UTF-8. False when not all of it could be written. Windows only.
bool writeUtf8(void *file, const std::wstring &text);
