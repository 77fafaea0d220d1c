#include "companions/helper/ReplacementFile.h"

#include <windows.h>

#include <cstring>

namespace {

/// Clears the read-only attribute, with which a file cannot be replaced. Never that of a link's target, nor
/// that of a file with another hard link, which shares the attribute.
void makeWritable(const std::wstring &path)
{
    const OpenedPath file = openPath(path, Links::asTheyAre, FILE_WRITE_ATTRIBUTES);
    BY_HANDLE_FILE_INFORMATION information = {};
    if (!file.handle || !refusalOfDestination(path, file.facts).empty() ||
        GetFileInformationByHandle(file.handle.get(), &information) == 0 || information.nNumberOfLinks != 1 ||
        (information.dwFileAttributes & FILE_ATTRIBUTE_READONLY) == 0) {
        return;
    }
    // A time of 0 leaves the file's time unchanged; attributes of 0 would do the same.
    const DWORD attributes = information.dwFileAttributes & ~DWORD{FILE_ATTRIBUTE_READONLY};
    FILE_BASIC_INFO basic = {};
    basic.FileAttributes = attributes != 0 ? attributes : DWORD{FILE_ATTRIBUTE_NORMAL};
    SetFileInformationByHandle(file.handle.get(), FileBasicInfo, &basic, sizeof(basic));
}

} // namespace

// Delegates, so that the destructor deletes the file even if this constructor throws.
ReplacementFile::ReplacementFile(const HeldPath &directory, const std::wstring &path) : ReplacementFile()
{
    const std::wstring name = L"qz_com_helper-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                              std::to_wstring(GetTickCount64()) + L".tmp";
    file = WindowsHandle(CreateFileW(literalPath(path + L'\\' + name).c_str(), GENERIC_WRITE | DELETE, 0,
                                     nullptr, CREATE_NEW,
                                     FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (file) {
        where = directory.contains(file.get(), name) ? Place::inDirectory : Place::elsewhere;
    }
}

ReplacementFile::~ReplacementFile()
{
    if (file && !inPlace) {
        FILE_DISPOSITION_INFO disposition = {};
        disposition.DeleteFile = TRUE;
        SetFileInformationByHandle(file.get(), FileDispositionInfo, &disposition, sizeof(disposition));
    }
}

bool ReplacementFile::write(const std::vector<unsigned char> &bytes) const
{
    DWORD written = 0;
    return where == Place::inDirectory &&
           WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0 &&
           written == bytes.size() && FlushFileBuffers(file.get()) != 0;
}

bool ReplacementFile::replace(const std::wstring &path)
{
    if (where != Place::inDirectory) {
        return false;
    }
    // Renames by handle, because another file may have the name by now. The new name is a full path, because
    // this function accepts none relative to an open directory. It leads to the held directory: no directory
    // on the way is empty any more.
    const std::wstring target = literalPath(path);
    const std::size_t length = target.size() * sizeof(wchar_t);
    std::vector<unsigned char> buffer(sizeof(FILE_RENAME_INFO) + length);
    auto *const information = reinterpret_cast<FILE_RENAME_INFO *>(buffer.data());
    information->ReplaceIfExists = TRUE;
    information->FileNameLength = static_cast<DWORD>(length);
    std::memcpy(information->FileName, target.data(), length);
    // Only now, because nothing after this allocates memory.
    makeWritable(path);
    inPlace = SetFileInformationByHandle(file.get(), FileRenameInfo, information,
                                         static_cast<DWORD>(buffer.size())) != 0;
    return inPlace;
}
