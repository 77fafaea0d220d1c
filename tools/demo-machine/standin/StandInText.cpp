#include "StandInText.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

constexpr const wchar_t *lineEnd = L"\r\n";

/// The name of the directory of the installation that @p executable belongs to.
std::wstring installationName(const std::wstring &executable)
{
    // HalconDirectory\bin\architecture\file.exe and ProductDirectory\Common7\IDE\file.exe: three levels up in
    // both.
    constexpr int levels = 3;
    std::wstring directory = executable;
    for (int level = 0; level < levels; ++level) {
        directory.erase(std::min(directory.find_last_of(L"\\/"), directory.size()));
    }
    return directory.substr(directory.find_last_of(L"\\/") + 1);
}

bool equalIgnoringCase(const std::wstring &a, const std::wstring &b)
{
    const auto lower = [](wchar_t c) {
        return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](wchar_t left, wchar_t right) { return lower(left) == lower(right); });
}

std::wstring shown(const std::wstring &value)
{
    return value.empty() ? L"(empty)" : value;
}

std::wstring shown(const std::optional<std::wstring> &value)
{
    return value ? shown(*value) : L"(not set)";
}

std::wstring row(const std::wstring &name, const std::wstring &value)
{
    return name + L'\t' + value + lineEnd;
}

/// One row per entry of the search path @p path.
std::wstring pathRows(const std::wstring &path)
{
    std::wstring rows;
    std::size_t begin = 0;
    for (int number = 1; begin <= path.size(); ++number) {
        const std::size_t end = std::min(path.find(L';', begin), path.size());
        rows += row(L"PATH " + std::to_wstring(number), shown(path.substr(begin, end - begin)));
        begin = end + 1;
    }
    return rows;
}

} // namespace

std::optional<std::wstring> environmentValue(const ReceivedStart &start, const std::wstring &name)
{
    for (const std::wstring &entry : start.environment) {
        // Windows stores a drive's current directory in an entry such as "=C:=C:\", whose name begins with
        // "=".
        const std::size_t separator = entry.find(L'=', 1);
        if (separator != std::wstring::npos && equalIgnoringCase(entry.substr(0, separator), name)) {
            return entry.substr(separator + 1);
        }
    }
    return std::nullopt;
}

std::wstring windowTitle(const ReceivedStart &start, const std::wstring &programName)
{
    const std::wstring installation = installationName(start.executable);
    const std::wstring title = programName + L" (stand-in of the demo machine)";
    return installation.empty() ? title : title + L" - " + installation;
}

std::wstring windowText(const ReceivedStart &start)
{
    static constexpr std::array<const wchar_t *, 4> variables{L"HALCONROOT", L"HALCONARCH", L"HALCONIMAGES",
                                                              L"HALCONEXAMPLES"};
    std::wstring text =
        row(L"Program", start.executable) + row(L"Command line", shown(start.commandLine)) + lineEnd;
    for (const wchar_t *variable : variables) {
        text += row(variable, shown(environmentValue(start, variable)));
    }
    text += lineEnd;
    const std::optional<std::wstring> path = environmentValue(start, L"PATH");
    return text + (path ? pathRows(*path) : row(L"PATH", shown(path)));
}

std::wstring recordText(const ReceivedStart &start)
{
    std::wstring text = L"executable=" + start.executable + L"\ncommandline=" + start.commandLine + L'\n';
    for (const std::wstring &entry : start.environment) {
        text += entry + L'\n';
    }
    return text;
}
