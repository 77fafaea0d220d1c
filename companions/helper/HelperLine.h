#pragma once

#include "companions/helper/HelperRequest.h"

#include <string>

/// What follows the program's own name in @p commandLine, without the spaces around it. The name is told apart as
/// Windows does it: in quotes to the next quote, otherwise to the next space or tab.
std::wstring argumentsOf(const std::wstring &commandLine);

/// Reads the arguments, which must be one of these as a whole, with single spaces where spaces stand:
///
///     --env NAME="VALUE" [--env NAME="VALUE"]... [--x86|--x64 ["LIBRARY"]...]
///     --copy="DESTINATION" "SOURCE"
///     --help
///     --version
///
/// What stands in quotes reaches to the next quote; nothing in it is special. A request is given only if it is
/// acceptable as far as that can be told without looking at the machine.
HelperReading readHelperArguments(const std::wstring &arguments);
