#pragma once

#include <optional>
#include <string>
#include <vector>

enum class HelperAction { setMachine, copyLicense, showHelp, showVersion };

/// Which of the system's two registrations a library is for.
enum class LibraryArchitecture { x86, x64 };

struct EnvironmentAssignment {
    std::wstring name;
    std::wstring value; ///< may be empty
};

/// What the command line asks the helper to do.
struct HelperRequest {
    HelperAction action = HelperAction::showHelp;

    // For setMachine:
    std::vector<EnvironmentAssignment> environment;
    std::optional<LibraryArchitecture> architecture;
    std::vector<std::wstring> libraries;

    // For copyLicense:
    std::wstring destination;
    std::wstring source;
};

/// A request, or the reason why there is none.
struct HelperReading {
    std::optional<HelperRequest> request;
    std::wstring refusal; ///< a sentence for the user; empty when there is a request
};
