#pragma once

#include "companions/helper/HelperExitCode.h"
#include "companions/helper/HelperRequest.h"

#include <chrono>

/// Sets the variables of @p request, then registers its libraries, all of them even if one fails. Looks at the
/// libraries before it changes anything. @p timeLimit is for each library. Windows only.
HelperOutcome switchMachine(const HelperRequest &request, std::chrono::milliseconds timeLimit);
