#pragma once

#include "companions/helper/HelperRequest.h"

#include <string>

/// What follows the program's own name in @p commandLine, without the spaces around it. The name ends where
/// Windows ends it: in quotes at the next quote, otherwise at the next space or tab.
std::wstring argumentsOf(const std::wstring &commandLine);

/// Reads the arguments, which must be exactly one of these, with single spaces as shown:
///
///     --env NAME="VALUE" [--env NAME="VALUE"]... [--x86|--x64 ["LIBRARY"]...]
///     --copy="DESTINATION" "SOURCE"
///     --help
///     --version
///
/// A quoted string ends at the next quote; no character in it is special. Returns a request only if it is
/// acceptable as far as that can be told without looking at the machine.
HelperReading readHelperArguments(const std::wstring &arguments);
