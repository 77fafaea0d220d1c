#pragma once

#include <string>

/// What the helper's exit code says; the numbers are its contract with the program that starts it.
enum class HelperExitCode {
    done = 0,                   ///< everything that was asked for
    internalError = 1,          ///< an error of the helper's own before it changed anything
    refused = 2,                ///< a doubt about the request; nothing was changed
    variablesRestored = 3,      ///< a variable could not be set; all of them are as they were
    variablesNotRestored = 4,   ///< a variable could not be set, and another could not be put back
    librariesNotRegistered = 5, ///< the variables are set, but not every library is registered
    copyFailed = 6,             ///< the copy failed; the old file, if there was one, holds what it held
};

/// What became of a request.
struct HelperOutcome {
    HelperExitCode code = HelperExitCode::done;
    std::wstring reason; ///< sentences for the user, in lines; may be empty
};
