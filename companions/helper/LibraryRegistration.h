#pragma once

#include "companions/helper/HelperExitCode.h"
#include "companions/helper/HelperRequest.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

/// The command line that makes @p regsvr32, an absolute path, register @p library silently.
std::wstring registrationCommandLine(const std::wstring &regsvr32, const std::wstring &library);

/// The absolute path of the system's registration program for an architecture, whether or not it exists;
/// empty when the system has no directory for the architecture. Windows only.
std::wstring registrationProgram(LibraryArchitecture architecture);

/// Registers one library and waits for that. The program is given the machine's variables as they are now,
/// and nothing of this process's own environment. When the library is not registered, the result ends a
/// sentence about its registration; otherwise it is empty. Windows only.
std::wstring registerLibrary(const std::wstring &regsvr32, const std::wstring &library,
                             std::chrono::milliseconds timeLimit);

/// Registers the libraries one after the other with @p registerOne, which returns what registerLibrary()
/// does; all of them even if one fails. An exception from it counts as a failure. Throws nothing.
HelperOutcome
registerLibraries(const std::vector<std::wstring> &libraries,
                  const std::function<std::wstring(const std::wstring &library)> &registerOne) noexcept;
