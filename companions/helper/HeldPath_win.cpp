#include "companions/helper/HeldPath.h"

#include <windows.h>

#include <utility>

namespace {

/// What @p write puts into a buffer; empty when it fails or the buffer is too small.
template <typename Write>
std::wstring textFrom(Write write)
{
    std::vector<wchar_t> buffer(longestText * 2);
    const DWORD length = write(buffer.data(), static_cast<DWORD>(buffer.size()));
    return length < buffer.size() ? std::wstring(buffer.data(), length) : std::wstring();
}

/// The final path of an open file or directory, as a literal path.
std::wstring finalPathOf(HANDLE handle)
{
    return textFrom([handle](wchar_t *buffer, DWORD size) {
        return GetFinalPathNameByHandleW(handle, buffer, size, FILE_NAME_NORMALIZED);
    });
}

/// A path with each short name replaced by the long one, as a literal path.
std::wstring withLongNames(const std::wstring &path)
{
    return textFrom([literal = literalPath(path)](wchar_t *buffer, DWORD size) {
        return GetLongPathNameW(literal.c_str(), buffer, size);
    });
}

/// Whether two paths are known and the same, ignoring case as Windows does.
bool samePath(const std::wstring &one, const std::wstring &other)
{
    return !one.empty() && CompareStringOrdinal(one.c_str(), static_cast<int>(one.size()), other.c_str(),
                                                static_cast<int>(other.size()), TRUE) == CSTR_EQUAL;
}

OpenedPath openSharing(DWORD share, const std::wstring &path, Links links, DWORD access)
{
    const DWORD flags = FILE_FLAG_BACKUP_SEMANTICS | SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION |
                        (links == Links::asTheyAre ? FILE_FLAG_OPEN_REPARSE_POINT : 0);
    OpenedPath opened{WindowsHandle(CreateFileW(literalPath(path).c_str(), access, share, nullptr,
                                                OPEN_EXISTING, flags, nullptr)),
                      {}};
    FileFacts &facts = opened.facts;
    HANDLE handle = opened.handle.get();
    BY_HANDLE_FILE_INFORMATION information = {};
    if (opened.handle && GetFileType(handle) != FILE_TYPE_DISK) {
        facts.kind = FileFacts::Kind::other;
    } else if (!opened.handle || GetFileInformationByHandle(handle, &information) == 0) {
        facts.error = GetLastError();
    } else {
        const bool directory = (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        facts.kind = directory ? FileFacts::Kind::directory : FileFacts::Kind::file;
        facts.reparsePoint = (information.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
        facts.elsewhere = links == Links::asTheyAre && !samePath(finalPathOf(handle), withLongNames(path));
    }
    return opened;
}

} // namespace

std::wstring literalPath(const std::wstring &path)
{
    return path.compare(0, 2, L"\\\\") == 0 ? L"\\\\?\\UNC\\" + path.substr(2) : L"\\\\?\\" + path;
}

OpenedPath openPath(const std::wstring &path, Links links, std::uint32_t access)
{
    return openSharing(FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, path, links, access);
}

HeldPath::HeldPath(const std::wstring &path)
{
    // Nobody can rename the root of the drive.
    std::size_t end = path.find(L'\\');
    do {
        end = path.find(L'\\', end + 1);
        const std::wstring part = path.substr(0, end);
        // Only handles with read or write access take part in sharing: one without would keep nobody out.
        OpenedPath opened =
            openSharing(FILE_SHARE_READ | FILE_SHARE_WRITE, part, Links::asTheyAre, GENERIC_READ);
        reason = refusalOfDirectory(part, opened.facts);
        handles.push_back(std::move(opened.handle));
    } while (reason.empty() && end != std::wstring::npos);
}

bool HeldPath::contains(void *file, const std::wstring &name) const
{
    HANDLE directory = handles.back().get();
    BY_HANDLE_FILE_INFORMATION ofFile = {};
    BY_HANDLE_FILE_INFORMATION ofDirectory = {};
    return reason.empty() && samePath(finalPathOf(file), finalPathOf(directory) + L'\\' + name) &&
           GetFileInformationByHandle(file, &ofFile) != 0 &&
           GetFileInformationByHandle(directory, &ofDirectory) != 0 &&
           ofFile.dwVolumeSerialNumber == ofDirectory.dwVolumeSerialNumber;
}
