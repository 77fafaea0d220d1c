#include "companions/helper/LicenseFile.h"

#include "companions/helper/HeldPath.h"
#include "companions/helper/HelperPath.h"

#include <windows.h>

#include <cstring>
#include <memory>
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

/// A new file that goes away with its owner unless it takes the place of another.
class ReplacementFile {
public:
    explicit ReplacementFile(const std::wstring &directory)
    {
        const std::wstring name = directory + L"\\qz_com_helper-" + std::to_wstring(GetCurrentProcessId()) +
                                  L"-" + std::to_wstring(GetTickCount64()) + L".tmp";
        file = UniqueHandle(CreateFileW(literalPath(name).c_str(), GENERIC_WRITE | DELETE, 0, nullptr,
                                        CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    }
    ReplacementFile(const ReplacementFile &) = delete;
    ReplacementFile &operator=(const ReplacementFile &) = delete;
    ~ReplacementFile()
    {
        if (file && !inPlace) {
            FILE_DISPOSITION_INFO disposition = {};
            disposition.DeleteFile = TRUE;
            SetFileInformationByHandle(file.get(), FileDispositionInfo, &disposition, sizeof(disposition));
        }
    }

    bool write(const Bytes &bytes) const
    {
        DWORD written = 0;
        return file &&
               WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) !=
                   0 &&
               written == bytes.size() && FlushFileBuffers(file.get()) != 0;
    }

    /// Takes the name @p path, and with it the place of the file that has it. By the handle: under the name of the new
    /// file somebody might have put another.
    bool replace(const std::wstring &path)
    {
        const std::wstring target = literalPath(path);
        const std::size_t length = target.size() * sizeof(wchar_t);
        std::vector<unsigned char> buffer(sizeof(FILE_RENAME_INFO) + length);
        auto *const information = reinterpret_cast<FILE_RENAME_INFO *>(buffer.data());
        information->ReplaceIfExists = TRUE;
        information->FileNameLength = static_cast<DWORD>(length);
        std::memcpy(information->FileName, target.data(), length);
        inPlace = SetFileInformationByHandle(file.get(), FileRenameInfo, information,
                                             static_cast<DWORD>(buffer.size())) != 0;
        return inPlace;
    }

private:
    UniqueHandle file;
    bool inPlace = false;
};

/// A handle for the attributes of what is under a path itself, never of what that leads to.
UniqueHandle openForAttributes(const std::wstring &path)
{
    return UniqueHandle(CreateFileW(literalPath(path).c_str(), FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
}

/// Makes a read-only file writable, without which nothing can take its place, and read-only again with its owner
/// unless the file has been replaced meanwhile. Holds no handle: it would be in the way of that too.
class WritableMeanwhile {
public:
    explicit WritableMeanwhile(const std::wstring &path) : path(path)
    {
        const UniqueHandle file = openForAttributes(path);
        FILE_BASIC_INFO basic = {};
        if (file && GetFileInformationByHandleEx(file.get(), FileBasicInfo, &basic, sizeof(basic)) != 0 &&
            (basic.FileAttributes & FILE_ATTRIBUTE_READONLY) != 0 &&
            setAttributes(file.get(), basic.FileAttributes & ~DWORD{FILE_ATTRIBUTE_READONLY})) {
            before = basic.FileAttributes;
        }
    }
    WritableMeanwhile(const WritableMeanwhile &) = delete;
    WritableMeanwhile &operator=(const WritableMeanwhile &) = delete;
    ~WritableMeanwhile()
    {
        if (before) {
            setAttributes(openForAttributes(path).get(), *before);
        }
    }

    void keepWritable() { before.reset(); }

private:
    static bool setAttributes(HANDLE file, DWORD attributes)
    {
        // Times that are 0 stay as they are, and so would attributes.
        FILE_BASIC_INFO basic = {};
        basic.FileAttributes = attributes != 0 ? attributes : DWORD{FILE_ATTRIBUTE_NORMAL};
        return SetFileInformationByHandle(file, FileBasicInfo, &basic, sizeof(basic)) != 0;
    }

    std::wstring path;
    std::optional<DWORD> before;
};

} // namespace

LicenseCopyResult replaceLicenseFile(const std::wstring &destination, const std::wstring &source)
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
    ReplacementFile replacement(directoryOf(target));
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
