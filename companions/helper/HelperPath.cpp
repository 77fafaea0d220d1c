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

bool isHighSurrogate(wchar_t character)
{
    return character >= 0xD800 && character <= 0xDBFF;
}

bool isLowSurrogate(wchar_t character)
{
    return character >= 0xDC00 && character <= 0xDFFF;
}

/// Whether a character breaks lines, or changes the direction of what follows.
bool movesText(wchar_t character)
{
    return character == 0x061C || character == 0x200E || character == 0x200F ||
           (character >= 0x2028 && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
}

bool hasLoneSurrogate(const std::wstring &text)
{
    bool inPair = false;
    for (const wchar_t character : text) {
        if (isLowSurrogate(character) != inPair) {
            return true;
        }
        inPair = isHighSurrogate(character);
    }
    return inPair;
}

bool isPlainPart(const std::wstring &part)
{
    return part.find_first_of(L":\"<>|?*") == std::wstring::npos && part.back() != L'.' &&
           part.back() != L' ';
}

bool isSeparator(wchar_t character)
{
    return character == L'\\' || character == L'/';
}

/// The names of a path that ends in one.
std::vector<std::wstring> partsOf(const std::wstring &path)
{
    std::vector<std::wstring> parts(1);
    for (const wchar_t character : path) {
        if (!isSeparator(character)) {
            parts.back() += character;
        } else if (!parts.back().empty()) {
            parts.emplace_back();
        }
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

/// Whether a share of this name offers files, rather than named pipes or mailslots.
bool isShareOfFiles(const std::wstring &share)
{
    return !sameName(share, L"pipe") && !sameName(share, L"mailslot") && !sameName(share, L"ipc$");
}

} // namespace

std::wstring faultOfText(const std::wstring &text, std::size_t longest)
{
    if (text.size() > longest) {
        return L"is longer than " + std::to_wstring(longest) + L" characters";
    }
    const bool clean = std::none_of(text.begin(), text.end(), isControl) && !hasLoneSurrogate(text);
    return clean ? L"" : L"holds control characters or halves of surrogate pairs";
}

std::wstring refusalOfPath(const std::wstring &path, PathRoot root, std::size_t longest)
{
    const std::wstring fault = faultOfText(path, longest);
    if (!fault.empty()) {
        return sentence(path, fault);
    }
    const bool share = root == PathRoot::driveOrShare && beginsAsShare(path);
    if (!share && !beginsWithDrive(path)) {
        return sentence(path, root == PathRoot::drive
                                  ? L"does not begin with a drive letter"
                                  : L"begins neither with a drive letter nor with a share");
    }
    if (isSeparator(path.back())) {
        return sentence(path, L"ends in a separator and names no file");
    }
    const std::vector<std::wstring> parts = partsOf(path);
    const auto odd = std::find_if_not(share ? parts.begin() : parts.begin() + 1, parts.end(), isPlainPart);
    if (odd != parts.end()) {
        return sentence(path, L"has the part " + shown(*odd) + L", which is no plain name");
    }
    // A server name that begins so names one of Windows' redirectors, and the share is the next part.
    if (share && (parts.size() < 3 || parts[0].front() == L';' || !isShareOfFiles(parts[1]))) {
        return sentence(path, L"names no file on a share");
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
    return path.substr(0, path.rfind(L'\\'));
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
    const bool loneSurrogate = hasLoneSurrogate(result);
    const auto cannotBeShown = [loneSurrogate](wchar_t character) {
        return isControl(character) || movesText(character) || character == L'"' ||
               (loneSurrogate && (isHighSurrogate(character) || isLowSurrogate(character)));
    };
    std::replace_if(result.begin(), result.end(), cannotBeShown, L'?');
    return L'"' + result + L'"';
}

std::wstring sentence(const std::wstring &path, const std::wstring &end)
{
    return shown(path) + L' ' + end + L'.';
}
