#include "companions/helper/ReplacementFile.h"

#include <windows.h>

#include <cstring>

namespace {

/// A file that is read-only cannot be replaced. What is under the path itself is changed, never what that leads to, nor
/// a file with a second name, which would lose the mark as well.
void makeWritable(const std::wstring &path)
{
    const OpenedPath file = openPath(path, Links::asTheyAre, FILE_WRITE_ATTRIBUTES);
    BY_HANDLE_FILE_INFORMATION information = {};
    if (!file.handle || !refusalOfDestination(path, file.facts).empty() ||
        GetFileInformationByHandle(file.handle.get(), &information) == 0 || information.nNumberOfLinks != 1 ||
        (information.dwFileAttributes & FILE_ATTRIBUTE_READONLY) == 0) {
        return;
    }
    // Times that are 0 stay as they are, and so would attributes.
    const DWORD attributes = information.dwFileAttributes & ~DWORD{FILE_ATTRIBUTE_READONLY};
    FILE_BASIC_INFO basic = {};
    basic.FileAttributes = attributes != 0 ? attributes : DWORD{FILE_ATTRIBUTE_NORMAL};
    SetFileInformationByHandle(file.handle.get(), FileBasicInfo, &basic, sizeof(basic));
}

} // namespace

// Once the other constructor is through, the file goes away even if this one throws.
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
    // What is renamed is told by its handle: under its name somebody might have put another. The new name is a whole
    // path because this function takes none that is relative to an open directory; it leads to the held one, as none
    // of the directories on its way is empty now.
    const std::wstring target = literalPath(path);
    const std::size_t length = target.size() * sizeof(wchar_t);
    std::vector<unsigned char> buffer(sizeof(FILE_RENAME_INFO) + length);
    auto *const information = reinterpret_cast<FILE_RENAME_INFO *>(buffer.data());
    information->ReplaceIfExists = TRUE;
    information->FileNameLength = static_cast<DWORD>(length);
    std::memcpy(information->FileName, target.data(), length);
    // Only now, when nothing is left that takes memory.
    makeWritable(path);
    inPlace = SetFileInformationByHandle(file.get(), FileRenameInfo, information,
                                         static_cast<DWORD>(buffer.size())) != 0;
    return inPlace;
}
