#pragma once

#include "companions/huebox/HueboxArguments.h"

#include <string>

enum class OutputChannel { standard, error };

/// Writes @p text to a channel: as it is to a console, as UTF-8 to anything else. False when that fails.
bool printPlain(OutputChannel channel, const std::wstring &text);

/// Writes @p line and a line end to standard output, on a console in the line's colour, which ends with it. False
/// when that fails.
bool printLine(const HueboxLine &line);
