#include "companions/helper/HelperPath.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace {

wchar_t lowerCase(wchar_t character)
{
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

bool isControl(wchar_t character)
{
    return character < 0x20 || (character >= 0x7F && character <= 0x9F);
}

bool isFirstHalf(wchar_t character)
{
    return character >= 0xD800 && character <= 0xDBFF;
}

bool isSecondHalf(wchar_t character)
{
    return character >= 0xDC00 && character <= 0xDFFF;
}

/// Whether a character breaks lines, or changes the direction of what follows.
bool movesText(wchar_t character)
{
    return character == 0x061C || character == 0x200E || character == 0x200F ||
           (character >= 0x2028 && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
}

bool hasLoneHalf(const std::wstring &text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isSecondHalf(text[i])) {
            return true;
        }
        if (isFirstHalf(text[i])) {
            ++i;
            if (i == text.size() || !isSecondHalf(text[i])) {
                return true;
            }
        }
    }
    return false;
}

bool isPlainPart(const std::wstring &part)
{
    return part.find_first_of(L":\"<>|?*") == std::wstring::npos && part.back() != L'.' &&
           part.back() != L' ';
}

constexpr const wchar_t *separators = L"\\/";

bool isSeparator(wchar_t character)
{
    return character == L'\\' || character == L'/';
}

std::vector<std::wstring> partsOf(const std::wstring &path)
{
    std::vector<std::wstring> parts;
    std::size_t begin = 0;
    while (begin < path.size()) {
        const std::size_t end = std::min(path.find_first_of(separators, begin), path.size());
        if (end != begin) {
            parts.push_back(path.substr(begin, end - begin));
        }
        begin = end + 1;
    }
    return parts;
}

bool beginsWithDrive(const std::wstring &path)
{
    const wchar_t letter = path.size() < 3 ? L'\0' : lowerCase(path.front());
    return letter >= L'a' && letter <= L'z' && path[1] == L':' && isSeparator(path[2]);
}

bool beginsAsShare(const std::wstring &path)
{
    return path.size() > 2 && isSeparator(path[0]) && isSeparator(path[1]) && !isSeparator(path[2]);
}

/// Whether what a server offers under this name are files, rather than the programs that listen there.
bool isShareOfFiles(const std::wstring &share)
{
    return !sameName(share, L"pipe") && !sameName(share, L"mailslot") && !sameName(share, L"ipc$");
}

} // namespace

bool isCleanText(const std::wstring &text)
{
    return std::none_of(text.begin(), text.end(), isControl) && !hasLoneHalf(text);
}

std::wstring faultOfPath(const std::wstring &path, PathRoot root)
{
    const bool share = root == PathRoot::driveOrShare && beginsAsShare(path);
    if (!share && !beginsWithDrive(path)) {
        return root == PathRoot::drive ? L"does not begin with a drive letter"
                                       : L"begins neither with a drive letter nor with a share";
    }
    if (isSeparator(path.back())) {
        return L"ends in a separator and names no file";
    }
    if (!isCleanText(path)) {
        return L"holds control characters or halves of surrogate pairs";
    }
    const std::vector<std::wstring> parts = partsOf(path);
    const auto odd = std::find_if_not(share ? parts.begin() : parts.begin() + 1, parts.end(), isPlainPart);
    if (odd != parts.end()) {
        return L"has the part " + shown(*odd) + L", which is no plain name";
    }
    // A server that begins so names one of Windows' redirectors instead, and the share is the next part.
    const bool redirector = share && parts[0].front() == L';';
    if (share && (parts.size() < 3 || redirector || !isShareOfFiles(parts[1]))) {
        return L"names no file on a share";
    }
    return {};
}

std::wstring withSingleBackslashes(const std::wstring &path)
{
    std::wstring result = beginsAsShare(path) ? L"\\" : L"";
    for (const std::wstring &part : partsOf(path)) {
        result += (result.empty() ? L"" : L"\\") + part;
    }
    return result;
}

std::wstring fileNameOf(const std::wstring &path)
{
    return path.substr(path.rfind(L'\\') + 1);
}

std::wstring directoryOf(const std::wstring &path)
{
    const std::size_t end = path.rfind(L'\\');
    return end == std::wstring::npos ? std::wstring() : path.substr(0, end);
}

bool sameName(const std::wstring &one, const std::wstring &other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](wchar_t a, wchar_t b) { return lowerCase(a) == lowerCase(b); });
}

std::wstring shown(const std::wstring &text)
{
    constexpr std::size_t longest = 300;
    std::wstring result = text.size() > longest ? text.substr(0, longest) + L"..." : text;
    const bool loneHalf = hasLoneHalf(result);
    const auto cannotBeShown = [loneHalf](wchar_t character) {
        return isControl(character) || movesText(character) || character == L'"' ||
               (loneHalf && (isFirstHalf(character) || isSecondHalf(character)));
    };
    std::replace_if(result.begin(), result.end(), cannotBeShown, L'?');
    return L'"' + result + L'"';
}

std::wstring sentence(const std::wstring &path, const std::wstring &end)
{
    return shown(path) + L' ' + end + L'.';
}
