#include "companions/huebox/HueboxArguments.h"

#include <algorithm>
#include <array>

namespace {

struct Option {
    const wchar_t *name;
    bool HueboxLine::*flag;
};

constexpr std::array<Option, 4> options{{
    {L"--fgred", &HueboxLine::red},
    {L"--fggreen", &HueboxLine::green},
    {L"--fgblue", &HueboxLine::blue},
    {L"--fgint", &HueboxLine::intense},
}};

bool isOption(const std::wstring &argument)
{
    return argument.compare(0, 2, L"--") == 0;
}

} // namespace

HueboxLine readHueboxArguments(const std::vector<std::wstring> &arguments)
{
    HueboxLine line;
    const auto firstWord = std::find_if_not(arguments.begin(), arguments.end(), isOption);
    for (auto argument = arguments.begin(); argument != firstWord; ++argument) {
        const auto option = std::find_if(options.begin(), options.end(),
                                         [&](const Option &each) { return *argument == each.name; });
        if (option == options.end()) {
            line.unknownOption = *argument;
            return line;
        }
        line.*option->flag = true;
    }
    for (auto word = firstWord; word != arguments.end(); ++word) {
        if (word != firstWord) {
            line.text += L' ';
        }
        line.text += *word;
    }
    return line;
}
