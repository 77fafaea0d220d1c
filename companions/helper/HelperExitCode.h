#pragma once

#include <string>

/// The helper's exit codes; the numbers are its contract with the program that starts it.
enum class HelperExitCode {
    done = 0,                   ///< everything was done
    internalError = 1,          ///< an internal error; nothing was changed
    refused = 2,                ///< the request was refused; nothing was changed
    variablesRestored = 3,      ///< a variable could not be set; all of them were restored
    variablesNotRestored = 4,   ///< a variable could not be set, and another could not be restored
    librariesNotRegistered = 5, ///< the variables are set, but not every library is registered
    copyFailed = 6,             ///< the copy failed; the old file, if any, has its old contents
};

/// The outcome of a request.
struct HelperOutcome {
    HelperExitCode code = HelperExitCode::done;
    std::wstring reason; ///< sentences for the user, in lines; may be empty
};
