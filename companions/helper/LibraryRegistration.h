#pragma once

#include "companions/helper/HelperRequest.h"

#include <chrono>
#include <functional>
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

/// Registers one library and waits for that. The program is given the machine's variables as they are now, and nothing
/// of this process's own environment. Windows only.
RegistrationResult registerLibrary(const std::wstring &regsvr32, const std::wstring &library,
                                   std::chrono::milliseconds timeLimit);

/// What the user is told of a library that is not registered, a sentence.
std::wstring textOf(RegistrationResult result, const std::wstring &library);

/// What became of several libraries.
struct RegistrationSummary {
    bool complete = true; ///< whether all of them are registered
    std::wstring reason;  ///< sentences for the user, in lines; may be empty
};

/// Registers the libraries one after the other with @p registerOne, all of them even if one fails. What that throws is
/// a failure; nothing is thrown here.
RegistrationSummary
registerLibraries(const std::vector<std::wstring> &libraries,
                  const std::function<RegistrationResult(const std::wstring &library)> &registerOne) noexcept;
