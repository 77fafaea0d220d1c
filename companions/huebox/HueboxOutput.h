#pragma once

#include "companions/huebox/HueboxArguments.h"

#include <string>

enum class OutputChannel { standard, error };

/// Writes @p text to a channel: to a console as UTF-16, to anything else as UTF-8. False when that fails.
bool printPlain(OutputChannel channel, const std::wstring &text);

/// Writes @p line and a line end to standard output, on a console in the line's colour, and restores the
/// colour. False when that fails.
bool printLine(const HueboxLine &line);
