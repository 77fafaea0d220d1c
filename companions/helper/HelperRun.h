#pragma once

#include "companions/helper/HelperExitCode.h"

#include <chrono>
#include <string>

/// How long the registration of one library may take.
constexpr std::chrono::seconds registrationTimeLimit{60};

/// Does what @p commandLine, the program's own name in front, asks for, and tells the user of an error. Windows only.
HelperExitCode runHelper(const std::wstring &commandLine,
                         std::chrono::milliseconds timeLimit = registrationTimeLimit);

/// The same, once this process is secured: without that, nothing is done. Windows only.
HelperExitCode runSecured(const std::wstring &commandLine);
