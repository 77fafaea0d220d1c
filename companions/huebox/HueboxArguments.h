#pragma once

#include <string>
#include <vector>

/// What huebox is asked to print, and how.
struct HueboxLine {
    bool red = false;
    bool green = false;
    bool blue = false;
    bool intense = false;
    std::wstring text;          ///< without a line end
    std::wstring unknownOption; ///< the first option that is none; nothing is printed then

    /// Whether the line has a colour of its own.
    bool coloured() const { return red || green || blue || intense; }
};

/// Reads @p arguments, the program's name not among them: options, then the words of the line. From the first word
/// on everything is a word.
HueboxLine readHueboxArguments(const std::vector<std::wstring> &arguments);
