#pragma once

#include <string>
#include <vector>

/// What huebox prints, and how.
struct HueboxLine {
    bool red = false;
    bool green = false;
    bool blue = false;
    bool intense = false;
    std::wstring text;          ///< without a line end
    std::wstring unknownOption; ///< the first unknown option; then nothing is printed

    /// Whether the line has a colour of its own.
    bool coloured() const { return red || green || blue || intense; }
};

/// Reads @p arguments, which lack the program's name: options, then the words of the line. After the first
/// word everything is a word.
HueboxLine readHueboxArguments(const std::vector<std::wstring> &arguments);
