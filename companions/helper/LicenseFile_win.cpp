#include "companions/helper/HelperRun.h"

#include "companions/common/LicenseSize.h"
#include "companions/helper/HeldPath.h"
#include "companions/helper/HelperPath.h"
#include "companions/helper/ReplacementFile.h"

#include <windows.h>

namespace {

/// What a licence file holds, or the reason to refuse it.
struct Contents {
    std::vector<unsigned char> bytes;
    std::wstring refusal;
};

/// What is looked at is what is open, and what is counted is what is read: nothing of it can be exchanged in between.
Contents readSource(const std::wstring &path)
{
    std::uint32_t error = ERROR_SUCCESS;
    // The program that asks may still have its own handle for writing to it.
    const WindowsHandle file = openPath(path, Links::followed, GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, error);
    std::wstring refusal = refusalOfFile(path, file ? factsOf(file.get()) : factsOfFailure(error));
    if (!refusal.empty()) {
        return {{}, refusal};
    }
    std::vector<unsigned char> bytes(largestLicense + 1);
    DWORD count = 0;
    DWORD more = 0;
    do { // not every file system gives all of a file at once
        if (ReadFile(file.get(), bytes.data() + count, static_cast<DWORD>(bytes.size()) - count, &more,
                     nullptr) == 0) {
            return {{}, refusalOfReading(path, GetLastError())};
        }
        count += more;
    } while (more != 0 && count < bytes.size());
    bytes.resize(count);
    return {bytes, refusalOfSize(path, count)};
}

} // namespace

HelperOutcome replaceLicenseFile(const std::wstring &destination, const std::wstring &source)
{
    const std::wstring target = withSingleBackslashes(destination);
    const HeldPath directory(directoryOf(target));
    std::wstring refusal = refusalOfDirectory(directory.end(), directory.facts());
    if (refusal.empty()) {
        refusal = refusalOfDestination(target, factsOf(target, Links::asTheyAre));
    }
    if (!refusal.empty()) {
        return {HelperExitCode::refused, refusal};
    }
    const Contents contents = readSource(withSingleBackslashes(source));
    if (!contents.refusal.empty()) {
        return {HelperExitCode::refused, contents.refusal};
    }
    ReplacementFile replacement(directory, directoryOf(target));
    if (replacement.place() == ReplacementFile::Place::elsewhere) {
        return {HelperExitCode::refused, sentence(directoryOf(target), L"leads elsewhere by now")};
    }
    if (!replacement.write(contents.bytes)) {
        return {HelperExitCode::copyFailed,
                L"A new file in " + shown(directoryOf(target)) + L" could not be written."};
    }
    if (!replacement.replace(target)) {
        return {HelperExitCode::copyFailed, sentence(target, L"could not be replaced")};
    }
    return {};
}
