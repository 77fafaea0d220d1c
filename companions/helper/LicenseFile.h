#pragma once

#include "companions/helper/HelperExitCode.h"

#include <string>

/// Copies the file @p source over @p destination after looking at both; the paths have no faults. Windows only.
///
/// The new file is written beside the old one and takes its place as a whole at the end.
HelperOutcome replaceLicenseFile(const std::wstring &destination, const std::wstring &source);
