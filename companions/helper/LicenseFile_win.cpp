#include "companions/helper/HelperRun.h"

#include "companions/common/LicenseSize.h"
#include "companions/helper/HeldPath.h"
#include "companions/helper/HelperPath.h"
#include "companions/helper/ReplacementFile.h"

#include <windows.h>

namespace {

/// Reads a licence file into @p bytes, or returns the reason to refuse it. Checks the open file and counts
/// the bytes read: there is no race between time of check and time of use.
std::wstring readSource(const std::wstring &path, std::vector<unsigned char> &bytes)
{
    const OpenedPath source = openPath(path, Links::followed, GENERIC_READ);
    std::wstring refusal = refusalOfFile(path, source.facts);
    if (!refusal.empty()) {
        return refusal;
    }
    bytes.resize(largestLicense + 1);
    DWORD count = 0;
    DWORD more = 0;
    do { // not every file system returns the whole file at once
        if (ReadFile(source.handle.get(), bytes.data() + count, static_cast<DWORD>(bytes.size()) - count,
                     &more, nullptr) == 0) {
            return refusalOfReading(path, GetLastError());
        }
        count += more;
    } while (more != 0 && count < bytes.size());
    bytes.resize(count);
    return refusalOfSize(path, count);
}

} // namespace

HelperOutcome replaceLicenseFile(const std::wstring &destination, const std::wstring &source)
{
    const std::wstring target = withSingleBackslashes(destination);
    const std::wstring license = directoryOf(target);
    const HeldPath directory(license);
    std::vector<unsigned char> contents;
    std::wstring refusal = directory.refusal();
    if (refusal.empty()) {
        refusal = refusalOfDestination(target, openPath(target, Links::asTheyAre).facts);
    }
    if (refusal.empty()) {
        refusal = readSource(withSingleBackslashes(source), contents);
    }
    if (!refusal.empty()) {
        return {HelperExitCode::refused, refusal};
    }
    ReplacementFile replacement(directory, license);
    if (replacement.place() == ReplacementFile::Place::elsewhere) {
        return {HelperExitCode::refused, sentence(license, L"leads elsewhere by now")};
    }
    if (!replacement.write(contents)) {
        return {HelperExitCode::copyFailed, L"A new file in " + sentence(license, L"could not be written")};
    }
    if (!replacement.replace(target)) {
        return {HelperExitCode::copyFailed, sentence(target, L"could not be replaced")};
    }
    return {};
}
