#include "companions/helper/HelperCheck.h"

#include "companions/helper/HelperPath.h"

#include <algorithm>
#include <array>
#include <set>

namespace {

constexpr std::array<const wchar_t *, 4> variableNames{L"HALCONROOT", L"HALCONARCH", L"HALCONIMAGES",
                                                       L"HALCONEXAMPLES"};

constexpr std::array<const wchar_t *, 4> libraryNames{L"halconx.dll", L"halconxxl.dll", L"hdevenginex.dll",
                                                      L"hdevenginexxl.dll"};

std::wstring refusalOfEnvironment(const std::vector<EnvironmentAssignment> &environment)
{
    std::set<std::wstring> seen;
    for (const EnvironmentAssignment &assignment : environment) {
        if (std::find(variableNames.begin(), variableNames.end(), assignment.name) == variableNames.end()) {
            return L"A variable is none of HALCON's.";
        }
        if (!seen.insert(assignment.name).second) {
            return L"A variable is named twice.";
        }
        if (assignment.value.size() > HelperLimits::text || !isCleanText(assignment.value)) {
            return L"The value of a variable is too long or holds control characters.";
        }
    }
    return {};
}

std::wstring refusalOfLibraryPaths(const std::vector<std::wstring> &libraries)
{
    std::set<const wchar_t *> seen;
    for (const std::wstring &library : libraries) {
        if (library.size() > HelperLimits::libraryPath || !isPlainFilePath(library)) {
            return L"The path of a library is too long or not of a plain form.";
        }
        const std::wstring fileName = fileNameOf(withSingleBackslashes(library));
        const auto *const name = std::find_if(libraryNames.begin(), libraryNames.end(),
                                              [&](const wchar_t *each) { return sameName(fileName, each); });
        if (name == libraryNames.end()) {
            return L"A library is none of HALCON's COM libraries.";
        }
        if (!seen.insert(*name).second) {
            return L"A library is named twice.";
        }
    }
    return {};
}

bool isAcceptablePath(const std::wstring &path)
{
    return path.size() <= HelperLimits::text && isPlainFilePath(path);
}

std::wstring refusalOfCopyPaths(const std::wstring &destination, const std::wstring &source)
{
    if (!isAcceptablePath(destination) || !isAcceptablePath(source)) {
        return L"A path is too long or not of a plain form.";
    }
    if (!sameName(fileNameOf(directoryOf(withSingleBackslashes(destination))), L"license")) {
        return L"The destination does not lie in a directory named license.";
    }
    return {};
}

bool isReached(const WayFacts &way)
{
    const auto isDirectory = [](const FileFacts &facts) { return facts.kind == FileFacts::Kind::directory; };
    const auto isDetour = [](const FileFacts &facts) { return facts.reparsePoint || facts.elsewhere; };
    return !way.empty() && std::all_of(way.begin(), way.end() - 1, isDirectory) &&
           std::none_of(way.begin(), way.end(), isDetour);
}

bool isReachedFile(const WayFacts &way)
{
    return isReached(way) && way.back().kind == FileFacts::Kind::file;
}

} // namespace

bool isReplaceable(const FileFacts &destination)
{
    return destination.kind == FileFacts::Kind::missing ||
           (destination.kind == FileFacts::Kind::file && !destination.reparsePoint &&
            !destination.elsewhere && destination.links == 1);
}

bool isSameFile(const FileFacts &one, const FileFacts &other)
{
    return one.kind == FileFacts::Kind::file && other.kind == FileFacts::Kind::file &&
           one.volume == other.volume && one.index == other.index;
}

std::wstring refusalOfRequest(const HelperRequest &request)
{
    if (request.action == HelperAction::copyLicense) {
        return refusalOfCopyPaths(request.destination, request.source);
    }
    const std::wstring refusal = refusalOfEnvironment(request.environment);
    return refusal.empty() ? refusalOfLibraryPaths(request.libraries) : refusal;
}

std::wstring refusalOfLibrary(const WayFacts &library)
{
    return isReachedFile(library) ? std::wstring()
                                  : L"A library is no file that is reached without a detour.";
}

std::wstring refusalOfCopy(const WayFacts &source, const WayFacts &licenseDirectory,
                           const FileFacts &destination)
{
    if (!isReachedFile(source)) {
        return L"The source is no file that is reached without a detour.";
    }
    if (source.back().size == 0 || source.back().size > HelperLimits::licenseSize) {
        return L"The source is empty or too large for a licence file.";
    }
    if (!isReached(licenseDirectory) || licenseDirectory.back().kind != FileFacts::Kind::directory) {
        return L"The destination's directory is none that is reached without a detour.";
    }
    if (isSameFile(source.back(), destination)) {
        return L"The source is the destination.";
    }
    if (!isReplaceable(destination)) {
        return L"The destination is there and no ordinary file.";
    }
    return {};
}
