#include "companions/helper/HelperLine.h"

#include "companions/helper/HelperCheck.h"

#include <cstddef>

namespace {

/// Reads a string from front to back. What does not match is not consumed.
class LineReader {
public:
    explicit LineReader(const std::wstring &text) : text(text) {}

    bool atEnd() const { return position == text.size(); }

    /// Consumes @p word if it comes next; returns whether it did.
    bool take(const std::wstring &word)
    {
        if (text.compare(position, word.size(), word) != 0) {
            return false;
        }
        position += word.size();
        return true;
    }

    /// Consumes and returns what precedes the next @p end, which is consumed too.
    std::optional<std::wstring> takeUntil(wchar_t end)
    {
        const std::size_t found = text.find(end, position);
        if (found == std::wstring::npos) {
            return std::nullopt;
        }
        std::wstring result = text.substr(position, found - position);
        position = found + 1;
        return result;
    }

    /// The string between two quotes, which a space or the end must follow; neither is consumed.
    std::optional<std::wstring> takeQuoted()
    {
        if (!take(L"\"")) {
            return std::nullopt;
        }
        std::optional<std::wstring> result = takeUntil(L'"');
        return atEnd() || text[position] == L' ' ? result : std::nullopt;
    }

private:
    const std::wstring &text;
    std::size_t position = 0;
};

bool takeAssignments(LineReader &reader, HelperRequest &request)
{
    while (reader.take(L"--env ")) {
        const std::optional<std::wstring> name = reader.takeUntil(L'=');
        const std::optional<std::wstring> value = name ? reader.takeQuoted() : std::nullopt;
        if (!value) {
            return false;
        }
        request.environment.push_back({*name, *value});
        if (reader.atEnd()) {
            return true;
        }
        reader.take(L" ");
    }
    return !request.environment.empty();
}

bool takeLibraries(LineReader &reader, HelperRequest &request)
{
    if (reader.take(L"--x86")) {
        request.architecture = LibraryArchitecture::x86;
    } else if (reader.take(L"--x64")) {
        request.architecture = LibraryArchitecture::x64;
    }
    while (!reader.atEnd()) {
        const std::optional<std::wstring> library = reader.take(L" ") ? reader.takeQuoted() : std::nullopt;
        if (!library || !request.architecture) {
            return false;
        }
        request.libraries.push_back(*library);
    }
    return true;
}

bool takeCopy(LineReader &reader, HelperRequest &request)
{
    const std::optional<std::wstring> destination = reader.takeQuoted();
    const std::optional<std::wstring> source =
        destination && reader.take(L" ") ? reader.takeQuoted() : std::nullopt;
    if (!source || !reader.atEnd()) {
        return false;
    }
    request.destination = *destination;
    request.source = *source;
    return true;
}

std::optional<HelperRequest> takeRequest(LineReader &reader)
{
    HelperRequest request;
    if (reader.take(L"--copy=")) {
        request.action = HelperAction::copyLicense;
        return takeCopy(reader, request) ? std::optional(request) : std::nullopt;
    }
    request.action = HelperAction::setMachine;
    return takeAssignments(reader, request) && takeLibraries(reader, request) ? std::optional(request)
                                                                              : std::nullopt;
}

} // namespace

std::wstring argumentsOf(const std::wstring &commandLine)
{
    const bool quoted = !commandLine.empty() && commandLine.front() == L'"';
    const std::size_t nameEnd = quoted ? commandLine.find(L'"', 1) : commandLine.find_first_of(L" \t");
    if (nameEnd == std::wstring::npos) {
        return {};
    }
    std::wstring rest = commandLine.substr(quoted ? nameEnd + 1 : nameEnd);
    // Without a space after its quotes the name goes on for some readers and ends there for others. Then the
    // quote is kept: no arguments begin with one.
    if (quoted && !rest.empty() && rest.front() != L' ' && rest.front() != L'\t') {
        return L'"' + rest;
    }
    const std::size_t begin = rest.find_first_not_of(L" \t");
    if (begin == std::wstring::npos) {
        return {};
    }
    return rest.substr(begin, rest.find_last_not_of(L' ') + 1 - begin);
}

HelperReading readHelperArguments(const std::wstring &arguments)
{
    HelperRequest request;
    if (arguments == L"--help") {
        return {request, {}};
    }
    if (arguments == L"--version") {
        request.action = HelperAction::showVersion;
        return {request, {}};
    }
    if (arguments.empty()) {
        return {std::nullopt, L"There are no arguments."};
    }
    LineReader reader(arguments);
    const std::optional<HelperRequest> read = takeRequest(reader);
    if (!read) {
        return {std::nullopt, L"The arguments are not of a known form."};
    }
    const std::wstring refusal = refusalOfRequest(*read);
    return refusal.empty() ? HelperReading{read, {}} : HelperReading{std::nullopt, refusal};
}
