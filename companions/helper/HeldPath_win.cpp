#include "companions/helper/HeldPath.h"

#include <windows.h>

namespace {

/// A path as it reads when each of its names is written in full.
std::wstring withLongNames(const std::wstring &path)
{
    std::vector<wchar_t> buffer(longestText * 2);
    const DWORD length =
        GetLongPathNameW(literalPath(path).c_str(), buffer.data(), static_cast<DWORD>(buffer.size()));
    return length > 0 && length < buffer.size() ? std::wstring(buffer.data(), length) : std::wstring();
}

FileFacts::Kind kindOf(HANDLE handle, DWORD attributes)
{
    if (GetFileType(handle) != FILE_TYPE_DISK) {
        return FileFacts::Kind::other;
    }
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileFacts::Kind::directory : FileFacts::Kind::file;
}

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

} // namespace

std::wstring literalPath(const std::wstring &path)
{
    return path.compare(0, 2, L"\\\\") == 0 ? L"\\\\?\\UNC\\" + path.substr(2) : L"\\\\?\\" + path;
}

WindowsHandle openPath(const std::wstring &path, Links links, std::uint32_t access, std::uint32_t share,
                       std::uint32_t &error)
{
    const DWORD flags = FILE_FLAG_BACKUP_SEMANTICS | SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION |
                        (links == Links::asTheyAre ? FILE_FLAG_OPEN_REPARSE_POINT : 0);
    WindowsHandle handle(
        CreateFileW(literalPath(path).c_str(), access, share, nullptr, OPEN_EXISTING, flags, nullptr));
    error = handle ? ERROR_SUCCESS : GetLastError();
    return handle;
}

FileFacts factsOfFailure(std::uint32_t error)
{
    FileFacts facts;
    facts.kind = error == ERROR_FILE_NOT_FOUND ? FileFacts::Kind::missing : FileFacts::Kind::unreadable;
    facts.error = error;
    return facts;
}

std::wstring finalPathOf(void *handle)
{
    std::vector<wchar_t> buffer(longestText * 2);
    const DWORD length = GetFinalPathNameByHandleW(handle, buffer.data(), static_cast<DWORD>(buffer.size()),
                                                   FILE_NAME_NORMALIZED);
    return length > 0 && length < buffer.size() ? std::wstring(buffer.data(), length) : std::wstring();
}

bool samePath(const std::wstring &one, const std::wstring &other)
{
    return CompareStringOrdinal(one.c_str(), static_cast<int>(one.size()), other.c_str(),
                                static_cast<int>(other.size()), TRUE) == CSTR_EQUAL;
}

FileFacts factsOf(void *handle) noexcept
{
    BY_HANDLE_FILE_INFORMATION information = {};
    FileFacts facts;
    if (GetFileInformationByHandle(handle, &information) == 0) {
        facts.kind =
            GetFileType(handle) == FILE_TYPE_DISK ? FileFacts::Kind::unreadable : FileFacts::Kind::other;
        facts.error = GetLastError();
        return facts;
    }
    facts.kind = kindOf(handle, information.dwFileAttributes);
    facts.reparsePoint = (information.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    facts.volume = information.dwVolumeSerialNumber;
    return facts;
}

FileFacts factsOf(void *handle, const std::wstring &path)
{
    FileFacts facts = factsOf(handle);
    const std::wstring finalPath = finalPathOf(handle);
    facts.elsewhere = finalPath.empty() || !samePath(finalPath, withLongNames(path));
    return facts;
}

FileFacts factsOf(const std::wstring &path, Links links)
{
    std::uint32_t error = ERROR_SUCCESS;
    const WindowsHandle handle = openPath(path, links, FILE_READ_ATTRIBUTES, shareAll, error);
    return handle ? factsOf(handle.get(), path) : factsOfFailure(error);
}

HeldPath::HeldPath(const std::wstring &path)
{
    // The root of the drive, which nobody can rename, comes first.
    std::size_t end = path.find(L'\\');
    while (reached && end != std::wstring::npos) {
        end = path.find(L'\\', end + 1);
        reached = holdPart(path.substr(0, end));
    }
}

bool HeldPath::holdPart(const std::wstring &path)
{
    endPath = path;
    std::uint32_t error = ERROR_SUCCESS;
    // Only one who reads or writes takes part in sharing: reading the attributes alone would keep nobody off.
    WindowsHandle handle =
        openPath(path, Links::asTheyAre, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, error);
    endFacts = handle ? factsOf(handle.get(), path) : factsOfFailure(error);
    handles.push_back(std::move(handle));
    return refusalOfDirectory(endPath, endFacts).empty();
}

void *HeldPath::handle() const
{
    return reached && !handles.empty() ? handles.back().get() : nullptr;
}
