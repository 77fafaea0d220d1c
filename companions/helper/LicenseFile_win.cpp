#include "companions/helper/LicenseFile.h"

#include "companions/helper/HeldPath.h"
#include "companions/helper/HelperPath.h"
#include "companions/helper/ReplacementFile.h"
#include "companions/helper/WritableMeanwhile.h"

#include <windows.h>

#include <optional>

namespace {

using Bytes = std::vector<unsigned char>;

/// The whole file, or nothing when it cannot be read or has grown too large since it was looked at.
std::optional<Bytes> readFile(HANDLE file)
{
    Bytes bytes(HelperLimits::licenseSize + 1);
    DWORD count = 0;
    if (ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) == 0 || count == 0 ||
        count > HelperLimits::licenseSize) {
        return std::nullopt;
    }
    bytes.resize(count);
    return bytes;
}

} // namespace

HelperOutcome replaceLicenseFile(const std::wstring &destination, const std::wstring &source)
{
    const std::wstring target = withSingleBackslashes(destination);
    // The program that asks may still have its own handle for writing to the source.
    const HeldPath from(withSingleBackslashes(source), HeldPath::Writers::allowed);
    const HeldPath directory(directoryOf(target), HeldPath::Writers::allowed);
    const std::wstring refusal = refusalOfCopy(from.facts(), directory.facts(), factsOf(target));
    if (!refusal.empty()) {
        return {HelperExitCode::refused, refusal};
    }
    const std::optional<Bytes> contents = readFile(from.handle());
    if (!contents) {
        return {HelperExitCode::refused, L"The source could not be read."};
    }
    ReplacementFile replacement(directory, directoryOf(target));
    if (replacement.place() == ReplacementFile::Place::elsewhere) {
        return {HelperExitCode::refused, L"The destination's directory leads elsewhere by now."};
    }
    if (!replacement.write(*contents)) {
        return {HelperExitCode::copyFailed, L"The new file could not be written."};
    }
    WritableMeanwhile writable(target);
    if (!replacement.replace(target)) {
        return {HelperExitCode::copyFailed, L"The new file could not take the place of the old one."};
    }
    writable.keepWritable();
    return {};
}
