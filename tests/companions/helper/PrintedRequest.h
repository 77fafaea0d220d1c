#pragma once

#include "companions/helper/HelperRequest.h"

#include <string>

/// The arguments as the program writes them for @p request, which sets variables or copies a licence.
inline std::wstring printedRequest(const HelperRequest &request)
{
    if (request.action == HelperAction::copyLicense) {
        return L"--copy=\"" + request.destination + L"\" \"" + request.source + L"\"";
    }
    std::wstring line;
    for (const EnvironmentAssignment &assignment : request.environment) {
        line += L"--env " + assignment.name + L"=\"" + assignment.value + L"\" ";
    }
    if (request.architecture) {
        line += *request.architecture == LibraryArchitecture::x86 ? L"--x86" : L"--x64";
    }
    for (const std::wstring &library : request.libraries) {
        line += L" \"" + library + L"\"";
    }
    return line;
}

/// Whether both request the same in the same order.
inline bool sameRequest(const HelperRequest &one, const HelperRequest &other)
{
    if (one.environment.size() != other.environment.size()) {
        return false;
    }
    for (std::size_t i = 0; i < one.environment.size(); ++i) {
        if (one.environment[i].name != other.environment[i].name ||
            one.environment[i].value != other.environment[i].value) {
            return false;
        }
    }
    return one.action == other.action && one.architecture == other.architecture &&
           one.libraries == other.libraries && one.destination == other.destination &&
           one.source == other.source;
}
