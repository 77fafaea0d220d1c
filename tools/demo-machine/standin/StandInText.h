#pragma once

#include <optional>
#include <string>
#include <vector>

/// What a program was given by whoever started it. A plain value.
struct ReceivedStart {
    std::wstring executable;               ///< full path of the program's own file
    std::wstring commandLine;              ///< as received, neither split nor unquoted
    std::vector<std::wstring> environment; ///< NAME=value, in the order received
};

/// The value of the environment variable @p name, whatever the case of its letters; nothing when it is not set.
std::optional<std::wstring> environmentValue(const ReceivedStart &start, const std::wstring &name);

/// The title of the window of the program called @p programName: the name and the installation's directory.
std::wstring windowTitle(const ReceivedStart &start, const std::wstring &programName);

/// The text in the window, with Windows line ends and one tabulator between a name and its value.
std::wstring windowText(const ReceivedStart &start);

/// The text of the record: the lines "executable=" and "commandline=", then one line per environment variable, each
/// ended by a line feed.
std::wstring recordText(const ReceivedStart &start);
