#include "companions/helper/HelperCheck.h"
#include "companions/helper/HelperLine.h"
#include "tests/companions/helper/PrintedRequest.h"
#include "tests/fuzz/Require.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

// A second, plain reading of the arguments: it cuts them at all quotes first, and then looks at the pieces.
namespace {

using Texts = std::vector<std::wstring>;

Texts cutAt(const std::wstring &text, const std::wstring &separators)
{
    Texts pieces(1);
    for (const wchar_t character : text) {
        if (separators.find(character) != std::wstring::npos) {
            pieces.emplace_back();
        } else {
            pieces.back() += character;
        }
    }
    return pieces;
}

std::wstring lower(std::wstring text)
{
    for (wchar_t &each : text) {
        each = static_cast<wchar_t>(each >= L'A' && each <= L'Z' ? each + 32 : each);
    }
    return text;
}

bool isOneOf(const std::wstring &text, const Texts &texts)
{
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

bool isClean(const std::wstring &text, std::size_t longest)
{
    bool clean = text.size() <= longest;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const wchar_t each = text[i];
        const bool high = each >= 0xD800 && each < 0xDC00;
        const bool low = each >= 0xDC00 && each < 0xE000;
        const wchar_t before = i > 0 ? text[i - 1] : L'\0';
        const wchar_t after = i + 1 < text.size() ? text[i + 1] : L'\0';
        clean = clean && each >= 0x20 && (each < 0x7F || each > 0x9F) &&
                (!high || (after >= 0xDC00 && after < 0xE000)) &&
                (!low || (before >= 0xD800 && before < 0xDC00));
    }
    return clean;
}

/// The names of a path, which may be separated by more than one slash or backslash. A path that ends in one
/// has an empty last name.
Texts namesOf(const std::wstring &path)
{
    Texts names = cutAt(path, L"\\/");
    const std::wstring last = names.back();
    names.erase(std::remove(names.begin(), names.end(), std::wstring()), names.end());
    if (last.empty()) {
        names.emplace_back();
    }
    return names;
}

bool arePlain(const Texts &names)
{
    return std::all_of(names.begin(), names.end(), [](const std::wstring &name) {
        return !name.empty() && name.find_first_of(L":\"<>|?*") == std::wstring::npos &&
               name.back() != L'.' && name.back() != L' ';
    });
}

bool isOnDrive(const std::wstring &path)
{
    Texts names = namesOf(path);
    const std::wstring drive = lower(names.front());
    names.erase(names.begin());
    return drive.size() == 2 && drive[0] >= L'a' && drive[0] <= L'z' && drive[1] == L':' &&
           lower(path.substr(0, 2)) == drive && !names.empty() && arePlain(names);
}

bool isOnShare(const std::wstring &path)
{
    const Texts begin = cutAt(path, L"\\/");
    const Texts names = namesOf(path);
    return begin.size() > 2 && begin[0].empty() && begin[1].empty() && !begin[2].empty() &&
           names.size() >= 3 && arePlain(names) && names[0][0] != L';' &&
           !isOneOf(lower(names[1]), {L"pipe", L"mailslot", L"ipc$"});
}

bool mayBeCopied(const std::wstring &destination, const std::wstring &source)
{
    const Texts names = namesOf(destination);
    return isClean(destination, 4096) && isClean(source, 4096) && isOnDrive(destination) &&
           names.size() >= 3 && lower(names[names.size() - 2]) == L"license" &&
           (isOnDrive(source) || isOnShare(source));
}

/// Whether these libraries may be registered together.
bool mayBeRegistered(const Texts &libraries)
{
    std::set<std::wstring> seen;
    return std::all_of(libraries.begin(), libraries.end(), [&](const std::wstring &library) {
        const std::wstring name = lower(namesOf(library).back());
        return isClean(library, 259) && isOnDrive(library) &&
               isOneOf(name, {L"halconx.dll", L"halconxxl.dll", L"hdevenginex.dll", L"hdevenginexxl.dll"}) &&
               seen.insert(name).second;
    });
}

bool mayBeSet(std::vector<std::wstring> names, const Texts &values)
{
    const bool ours = std::all_of(names.begin(), names.end(), [](const std::wstring &name) {
        return isOneOf(name, {L"HALCONROOT", L"HALCONARCH", L"HALCONIMAGES", L"HALCONEXAMPLES"});
    });
    std::sort(names.begin(), names.end());
    return ours && std::adjacent_find(names.begin(), names.end()) == names.end() &&
           std::all_of(values.begin(), values.end(),
                       [](const std::wstring &value) { return isClean(value, 4096); });
}

/// Whether the pieces between the quotes of a line, and in them, are variables and libraries to set.
bool areSettings(const Texts &pieces)
{
    Texts names;
    Texts values;
    Texts libraries;
    bool architecture = false;
    for (std::size_t i = 0; i < pieces.size(); i += 2) {
        std::wstring piece = pieces[i];
        const bool last = i + 1 == pieces.size();
        const std::wstring start = i == 0 ? L"--env " : L" --env ";
        if (!architecture && !last && piece.rfind(start, 0) == 0 && piece.find(L'=') == piece.size() - 1) {
            names.push_back(piece.substr(start.size(), piece.size() - start.size() - 1));
            values.push_back(pieces[i + 1]);
            continue;
        }
        if (!architecture && i > 0 && (piece.rfind(L" --x86", 0) == 0 || piece.rfind(L" --x64", 0) == 0)) {
            architecture = true;
            piece.erase(0, 6);
        } else if (!architecture && i > 0 && last && piece == L" ") {
            continue;
        }
        if (piece != (last ? L"" : L" ") || (!last && !architecture)) {
            return false;
        }
        if (!last) {
            libraries.push_back(pieces[i + 1]);
        }
    }
    return !names.empty() && mayBeSet(names, values) && mayBeRegistered(libraries);
}

bool isAcceptable(const std::wstring &arguments)
{
    if (arguments == L"--help" || arguments == L"--version") {
        return true;
    }
    const Texts pieces = cutAt(arguments, L"\"");
    if (pieces.size() % 2 == 0) {
        return false;
    }
    if (pieces[0] == L"--copy=") {
        return pieces.size() == 5 && pieces[2] == L" " && pieces[4].empty() &&
               mayBeCopied(pieces[1], pieces[3]);
    }
    return areSettings(pieces);
}

/// What @p line begins with is left to the helper's own tests; here the program's name is in quotes.
std::wstring trimmed(const std::wstring &line)
{
    const std::size_t begin = line.find_first_not_of(L" \t");
    return begin == std::wstring::npos ? std::wstring()
                                       : line.substr(begin, line.find_last_not_of(L' ') + 1 - begin);
}

void checkRefusal(const std::wstring &refusal)
{
    require(refusal.size() > 1 && refusal.back() == L'.', "a refusal is a sentence");
    require(refusal.size() < 800, "a refusal is short enough for a message box");
    require(std::none_of(refusal.begin(), refusal.end(),
                         [](wchar_t each) {
                             return each < 0x20 || (each >= 0x7F && each <= 0x9F) || each == 0x200E ||
                                    each == 0x200F || (each >= 0x2028 && each <= 0x202E) ||
                                    (each >= 0x2066 && each <= 0x2069);
                         }),
            "a refusal cannot disguise what it shows");
}

} // namespace

/// Every line is refused, or read as exactly what it says; and refused only when a rule says so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // A byte is a character of Latin-1; but after 0xFF two bytes are a code unit of UTF-16.
    std::wstring line;
    for (std::size_t i = 0; i < size; ++i) {
        const bool unit = data[i] == 0xFF && i + 2 < size;
        line += static_cast<wchar_t>(unit ? data[i + 1] * 0x100 + data[i + 2] : data[i]);
        i += unit ? 2 : 0;
    }
    const std::wstring arguments = argumentsOf(L"\"helper\" " + line);
    require(arguments == trimmed(line), "the arguments are what follows the program's name");

    const HelperReading reading = readHelperArguments(arguments);
    require(reading.request.has_value() == reading.refusal.empty(), "a line is either read or refused");
    require(reading.request.has_value() == isAcceptable(arguments), "a line is refused only by a rule");
    if (!reading.request) {
        checkRefusal(reading.refusal);
        return 0;
    }
    if (reading.request->action == HelperAction::showHelp ||
        reading.request->action == HelperAction::showVersion) {
        return 0;
    }
    std::wstring printed = printedRequest(*reading.request);
    const HelperReading again = readHelperArguments(printed);
    require(again.request && sameRequest(*again.request, *reading.request),
            "a request that is written as a line is read back");
    printed.erase(printed.find_last_not_of(L' ') + 1);
    require(printed == arguments, "a request is exactly what the line says");
    return 0;
}
