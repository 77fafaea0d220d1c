#pragma once

#include "companions/helper/HelperExitCode.h"

#include <string>

/// What became of a copy.
struct LicenseCopyResult {
    HelperExitCode code = HelperExitCode::done;
    std::wstring reason; ///< a sentence for the user; empty when it is done
};

/// Copies the file @p source over @p destination after looking at both; the paths are plain ones. Windows only.
///
/// The new file is written beside the old one and takes its place as a whole at the end.
LicenseCopyResult replaceLicenseFile(const std::wstring &destination, const std::wstring &source);
