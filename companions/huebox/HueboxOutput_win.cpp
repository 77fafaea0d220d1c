#include "companions/huebox/HueboxOutput.h"

#include "companions/common/Utf8Output.h"

#include <windows.h>

#include <optional>

namespace {

HANDLE handleOf(OutputChannel channel)
{
    return GetStdHandle(channel == OutputChannel::standard ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

bool isConsole(HANDLE handle)
{
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0;
}

/// Sets the text colour of a console while this object lives.
class ConsoleColour {
public:
    ConsoleColour(HANDLE console, const HueboxLine &line) : console(console)
    {
        CONSOLE_SCREEN_BUFFER_INFO info = {};
        if (!line.coloured() || GetConsoleScreenBufferInfo(console, &info) == 0) {
            return;
        }
        constexpr WORD foreground =
            FOREGROUND_RED | FOREGROUND_GREEN | FOREGROUND_BLUE | FOREGROUND_INTENSITY;
        unsigned attributes = info.wAttributes & ~unsigned{foreground};
        attributes |= line.red ? FOREGROUND_RED : 0U;
        attributes |= line.green ? FOREGROUND_GREEN : 0U;
        attributes |= line.blue ? FOREGROUND_BLUE : 0U;
        attributes |= line.intense ? FOREGROUND_INTENSITY : 0U;
        if (SetConsoleTextAttribute(console, static_cast<WORD>(attributes)) != 0) {
            before = info.wAttributes;
        }
    }
    ConsoleColour(const ConsoleColour &) = delete;
    ConsoleColour &operator=(const ConsoleColour &) = delete;
    ~ConsoleColour()
    {
        if (before) {
            SetConsoleTextAttribute(console, *before);
        }
    }

private:
    HANDLE console;
    std::optional<WORD> before;
};

bool writeToConsole(HANDLE console, const std::wstring &text)
{
    DWORD written = 0;
    return WriteConsoleW(console, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0;
}

} // namespace

bool printPlain(OutputChannel channel, const std::wstring &text)
{
    const HANDLE handle = handleOf(channel);
    return isConsole(handle) ? writeToConsole(handle, text) : writeUtf8(handle, text);
}

bool printLine(const HueboxLine &line)
{
    const ConsoleColour colour(handleOf(OutputChannel::standard), line);
    return printPlain(OutputChannel::standard, line.text + L"\r\n");
}
