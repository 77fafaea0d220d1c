#include "companions/helper/HeldPath.h"

#include <windows.h>

#include <array>

namespace {

/// A path as it reads when each of its names is written in full.
std::wstring withLongNames(const std::wstring &path)
{
    std::vector<wchar_t> buffer(HelperLimits::text * 2);
    const DWORD length =
        GetLongPathNameW(literalPath(path).c_str(), buffer.data(), static_cast<DWORD>(buffer.size()));
    return length > 0 && length < buffer.size() ? std::wstring(buffer.data(), length) : std::wstring();
}

FileFacts::Kind kindOf(HANDLE handle, DWORD attributes)
{
    if (GetFileType(handle) != FILE_TYPE_DISK) {
        return FileFacts::Kind::unknown;
    }
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileFacts::Kind::directory : FileFacts::Kind::file;
}

/// Opens a literal path, also a directory, and a reparse point itself rather than what it leads to. When that fails,
/// @p error is Windows' reason.
UniqueHandle openAsItIs(const std::wstring &literal, DWORD access, DWORD share, DWORD &error)
{
    UniqueHandle handle(CreateFileW(literal.c_str(), access, share, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    error = GetLastError();
    return handle;
}

FileFacts factsOfFailure(DWORD error)
{
    FileFacts facts;
    if (error == ERROR_FILE_NOT_FOUND) {
        facts.kind = FileFacts::Kind::missing;
    }
    return facts;
}

} // namespace

std::wstring literalPath(const std::wstring &path)
{
    return L"\\\\?\\" + path;
}

std::wstring finalPathOf(void *handle)
{
    std::vector<wchar_t> buffer(HelperLimits::text * 2);
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
    if (GetFileInformationByHandle(handle, &information) == 0) {
        return {};
    }
    FileFacts facts;
    facts.kind = kindOf(handle, information.dwFileAttributes);
    facts.reparsePoint = (information.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    facts.size = std::uint64_t{information.nFileSizeHigh} << 32 | information.nFileSizeLow;
    facts.links = information.nNumberOfLinks;
    facts.volume = information.dwVolumeSerialNumber;
    facts.index = std::uint64_t{information.nFileIndexHigh} << 32 | information.nFileIndexLow;
    return facts;
}

FileFacts factsOf(void *handle, const std::wstring &path)
{
    FileFacts facts = factsOf(handle);
    const std::wstring finalPath = finalPathOf(handle);
    facts.elsewhere = finalPath.empty() || !samePath(finalPath, withLongNames(path));
    return facts;
}

FileFacts factsOf(const std::wstring &path)
{
    DWORD error = ERROR_SUCCESS;
    const UniqueHandle handle = openAsItIs(literalPath(path), FILE_READ_ATTRIBUTES,
                                           FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, error);
    return handle ? factsOf(handle.get(), path) : factsOfFailure(error);
}

HeldPath::HeldPath(const std::wstring &path, Writers writers)
{
    // The root of the drive, which nobody can rename, comes first.
    std::size_t end = path.find(L'\\');
    while (reached && end != std::wstring::npos) {
        end = path.find(L'\\', end + 1);
        reached = end == std::wstring::npos ? holdPart(path, writers)
                                            : holdPart(path.substr(0, end), Writers::allowed);
    }
}

bool HeldPath::holdPart(const std::wstring &path, Writers writers)
{
    // Only one who reads or writes takes part in sharing: reading the attributes alone would keep nobody off.
    const DWORD share = writers == Writers::allowed ? FILE_SHARE_READ | FILE_SHARE_WRITE : FILE_SHARE_READ;
    DWORD error = ERROR_SUCCESS;
    UniqueHandle handle = openAsItIs(literalPath(path), GENERIC_READ, share, error);
    if (!handle) {
        wayFacts.push_back(factsOfFailure(error));
        return false;
    }
    wayFacts.push_back(factsOf(handle.get(), path));
    handles.push_back(std::move(handle));
    return wayFacts.back().kind != FileFacts::Kind::unknown;
}

void *HeldPath::handle() const
{
    return reached && !handles.empty() ? handles.back().get() : nullptr;
}
