#include "companions/helper/HelperPath.h"

#include <algorithm>
#include <array>
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

/// Devices can be opened under these names from every directory, whatever follows a dot in them. The digits are those
/// that Windows takes for one.
bool isDeviceName(const std::wstring &part)
{
    static const std::array<const wchar_t *, 7> plain{L"con",    L"prn",     L"aux",   L"nul",
                                                      L"conin$", L"conout$", L"clock$"};
    static const std::wstring digits = L"0123456789\u00B9\u00B2\u00B3";
    std::wstring stem = part.substr(0, part.find(L'.'));
    stem.erase(stem.find_last_not_of(L' ') + 1);
    if (std::any_of(plain.begin(), plain.end(), [&](const wchar_t *name) { return sameName(stem, name); })) {
        return true;
    }
    const std::wstring port = stem.substr(0, 3);
    return stem.size() == 4 && (sameName(port, L"com") || sameName(port, L"lpt")) &&
           digits.find(stem.back()) != std::wstring::npos;
}

bool isPlainPart(const std::wstring &part)
{
    return part.find_first_of(L":\"<>|?*") == std::wstring::npos && part.back() != L'.' &&
           part.back() != L' ' && !isDeviceName(part);
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

} // namespace

bool isCleanText(const std::wstring &text)
{
    return std::none_of(text.begin(), text.end(), isControl) && !hasLoneHalf(text);
}

bool isPlainFilePath(const std::wstring &path)
{
    if (!beginsWithDrive(path) || isSeparator(path.back()) || !isCleanText(path)) {
        return false;
    }
    const std::vector<std::wstring> parts = partsOf(path);
    return std::all_of(parts.begin() + 1, parts.end(), isPlainPart);
}

std::wstring withSingleBackslashes(const std::wstring &path)
{
    std::wstring result;
    for (const std::wstring &part : partsOf(path)) {
        result += result.empty() ? part : L'\\' + part;
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
