#pragma once

#include "companions/helper/HelperExitCode.h"
#include "companions/helper/HelperRequest.h"

#include <chrono>
#include <string>

/// What became of the switch.
struct MachineSwitchResult {
    HelperExitCode code = HelperExitCode::done;
    std::wstring reason; ///< sentences for the user, in lines; may be empty
};

/// Sets the variables of @p request, then registers its libraries, all of them even if one fails. Looks at the
/// libraries before it changes anything. @p timeLimit is for each library. Windows only.
MachineSwitchResult switchMachine(const HelperRequest &request, std::chrono::milliseconds timeLimit);
