#pragma once

#include "companions/helper/HelperExitCode.h"
#include "companions/helper/HelperRequest.h"

#include <chrono>
#include <string>

/// Does what @p commandLine, which begins with the program's own name, asks for, and tells the user of an
/// error. Does nothing unless this process can be secured first. Windows only.
HelperExitCode runHelper(const std::wstring &commandLine);

/// Checks the file @p source and @p destination, both acceptable paths, and copies one over the other. The
/// new file is written beside the old one, and at the end replaces it in one step. Windows only.
HelperOutcome replaceLicenseFile(const std::wstring &destination, const std::wstring &source);

/// Checks the libraries of @p request, sets its variables, then registers the libraries, all of them even if
/// one fails. @p timeLimit is for each library. Windows only.
HelperOutcome switchMachine(const HelperRequest &request,
                            std::chrono::milliseconds timeLimit = std::chrono::seconds(60));
