#pragma once

#include "companions/helper/HelperRequest.h"

#include <chrono>
#include <string>
#include <vector>

/// The command line that makes @p regsvr32, an absolute path, register @p library without a word.
std::wstring registrationCommandLine(const std::wstring &regsvr32, const std::wstring &library);

/// The absolute path of the system's registration program for an architecture, whether or not it exists; empty when
/// the system has no directory for the architecture. Windows only.
std::wstring registrationProgram(LibraryArchitecture architecture);

enum class RegistrationResult {
    registered,
    notStarted,
    failed,   ///< the program ended with another exit code than 0
    timedOut, ///< the program took longer than it may, and was ended
};

/// Registers one library and waits for that. Windows only.
RegistrationResult registerLibrary(const std::wstring &regsvr32, const std::wstring &library,
                                   std::chrono::milliseconds timeLimit);

/// What the user is told of a library that is not registered, a sentence.
std::wstring textOf(RegistrationResult result, const std::wstring &library);
