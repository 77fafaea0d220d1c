#pragma once

#include "companions/helper/HelperExitCode.h"

#include <string>

/// What --help prints, with Windows' line ends.
std::wstring helpText();

/// What --version prints, with Windows' line ends.
std::wstring versionText();

/// What the user is told of an exit code other than 0: a sentence, without the reason.
std::wstring textOf(HelperExitCode code);
