#include "companions/helper/HelperCheck.h"

#include "companions/common/LicenseSize.h"
#include "companions/helper/HelperPath.h"

#include <algorithm>
#include <array>
#include <set>

namespace {

// Windows' error codes for a missing file and a missing directory above it.
constexpr std::uint32_t fileNotFound = 2;
constexpr std::uint32_t pathNotFound = 3;

constexpr std::array<const wchar_t *, 4> variableNames{L"HALCONROOT", L"HALCONARCH", L"HALCONIMAGES",
                                                       L"HALCONEXAMPLES"};

constexpr std::array<const wchar_t *, 4> libraryNames{L"halconx.dll", L"halconxxl.dll", L"hdevenginex.dll",
                                                      L"hdevenginexxl.dll"};

std::wstring refusalOfValue(const EnvironmentAssignment &assignment)
{
    const std::wstring fault = faultOfText(assignment.value, longestText);
    return fault.empty() ? std::wstring() : L"The value of " + assignment.name + L' ' + fault + L'.';
}

std::wstring refusalOfEnvironment(const std::vector<EnvironmentAssignment> &environment)
{
    std::set<std::wstring> seen;
    for (const EnvironmentAssignment &assignment : environment) {
        const std::wstring &name = assignment.name;
        if (std::find(variableNames.begin(), variableNames.end(), name) == variableNames.end()) {
            return L"The variable " + shown(name) + L" is none of HALCON's.";
        }
        std::wstring refusal = refusalOfValue(assignment);
        if (!refusal.empty()) {
            return refusal;
        }
        if (!seen.insert(name).second) {
            return L"The variable " + name + L" is named twice.";
        }
    }
    return {};
}

std::wstring refusalOfLibraries(const std::vector<std::wstring> &libraries)
{
    // regsvr32 loads no library with a longer path.
    constexpr std::size_t longestPath = 259;
    std::set<const wchar_t *> seen;
    for (const std::wstring &library : libraries) {
        std::wstring refusal = refusalOfPath(library, PathRoot::drive, longestPath);
        if (!refusal.empty()) {
            return refusal;
        }
        const std::wstring fileName = fileNameOf(withSingleBackslashes(library));
        const auto *const name = std::find_if(libraryNames.begin(), libraryNames.end(),
                                              [&](const wchar_t *each) { return sameName(fileName, each); });
        if (name == libraryNames.end()) {
            return sentence(library, L"is none of HALCON's COM libraries");
        }
        if (!seen.insert(*name).second) {
            return sentence(library, L"is the second library of this name");
        }
    }
    return {};
}

std::wstring refusalOfCopy(const std::wstring &destination, const std::wstring &source)
{
    std::wstring refusal = refusalOfPath(destination, PathRoot::drive, longestText);
    if (refusal.empty()) {
        refusal = refusalOfPath(source, PathRoot::driveOrShare, longestText);
    }
    if (refusal.empty() &&
        !sameName(fileNameOf(directoryOf(withSingleBackslashes(destination))), L"license")) {
        refusal = sentence(destination, L"does not lie in a directory named license");
    }
    return refusal;
}

std::wstring refusalOfDetour(const std::wstring &path, const FileFacts &facts)
{
    if (facts.reparsePoint) {
        return sentence(path, L"is a reparse point, such as a link or a junction");
    }
    return facts.elsewhere ? sentence(path, L"lies elsewhere than its path says") : std::wstring();
}

} // namespace

std::wstring refusalOfRequest(const HelperRequest &request)
{
    if (request.action == HelperAction::copyLicense) {
        return refusalOfCopy(request.destination, request.source);
    }
    const std::wstring refusal = refusalOfEnvironment(request.environment);
    return refusal.empty() ? refusalOfLibraries(request.libraries) : refusal;
}

std::wstring refusalOfFile(const std::wstring &path, const FileFacts &facts)
{
    switch (facts.kind) {
    case FileFacts::Kind::file:
        return {};
    case FileFacts::Kind::directory:
        return sentence(path, L"is a directory");
    case FileFacts::Kind::other:
        return sentence(path, L"is no file on a disk");
    case FileFacts::Kind::unknown:
        break;
    }
    return refusalOfReading(path, facts.error);
}

std::wstring refusalOfDirectory(const std::wstring &path, const FileFacts &facts)
{
    if (facts.kind == FileFacts::Kind::unknown) {
        return refusalOfReading(path, facts.error);
    }
    const std::wstring detour = refusalOfDetour(path, facts);
    return detour.empty() && facts.kind != FileFacts::Kind::directory ? sentence(path, L"is not a directory")
                                                                      : detour;
}

std::wstring refusalOfDestination(const std::wstring &path, const FileFacts &facts)
{
    if (facts.kind == FileFacts::Kind::unknown && facts.error == fileNotFound) {
        return {};
    }
    const std::wstring detour = refusalOfDetour(path, facts);
    return detour.empty() ? refusalOfFile(path, facts) : detour;
}

std::wstring refusalOfSize(const std::wstring &path, std::int64_t size)
{
    if (size == 0) {
        return sentence(path, L"is empty");
    }
    return size > largestLicense ? sentence(path, L"is larger than " + std::to_wstring(largestLicense) +
                                                      L" bytes, and no licence file")
                                 : std::wstring();
}

std::wstring refusalOfReading(const std::wstring &path, std::uint32_t error)
{
    return sentence(path, error == fileNotFound || error == pathNotFound
                              ? L"does not exist"
                              : L"cannot be read (Windows' error " + std::to_wstring(error) + L")");
}
