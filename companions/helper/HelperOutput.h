#pragma once

#include <string>

enum class HelperChannel { standard, error };

/// Writes @p text where the caller has redirected the channel to, as UTF-8, or else to the console of the process that
/// started this one. Without either it goes nowhere. False when writing fails. Windows only.
bool printText(HelperChannel channel, const std::wstring &text);

/// Whether whoever started this process asked for a visible window. Without a word about it none is to be shown.
/// Windows only.
bool isStartedVisibly();

/// Shows @p text in a box that waits for the user. Windows only.
void showErrorBox(const std::wstring &text);
