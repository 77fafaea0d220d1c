#pragma once

#include "companions/helper/HelperExitCode.h"
#include "companions/helper/HelperRequest.h"

#include <chrono>
#include <string>

/// Does what @p commandLine, the program's own name in front, asks for, and tells the user of an error. Nothing is done
/// unless this process can be secured first. Windows only.
HelperExitCode runHelper(const std::wstring &commandLine);

/// Copies the file @p source over @p destination after looking at both; the paths have no faults. The new file is
/// written beside the old one and takes its place as a whole at the end. Windows only.
HelperOutcome replaceLicenseFile(const std::wstring &destination, const std::wstring &source);

/// Sets the variables of @p request, then registers its libraries, all of them even if one fails. Looks at the
/// libraries before it changes anything. @p timeLimit is for each library. Windows only.
HelperOutcome switchMachine(const HelperRequest &request,
                            std::chrono::milliseconds timeLimit = std::chrono::seconds(60));
