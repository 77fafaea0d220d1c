#pragma once

#include <optional>
#include <string>
#include <vector>

/// What a program received from its parent. A plain value.
struct ReceivedStart {
    std::wstring executable;               ///< full path of the program's own file
    std::wstring commandLine;              ///< as received, neither split nor unquoted
    std::vector<std::wstring> environment; ///< NAME=value, in the order received
};

/// The value of the environment variable @p name, ignoring case; nothing when it is not set.
std::optional<std::wstring> environmentValue(const ReceivedStart &start, const std::wstring &name);

/// The title of the window of the program called @p programName: the name and the installation's directory.
std::wstring windowTitle(const ReceivedStart &start, const std::wstring &programName);

/// The text in the window, with Windows line ends and one tab between a name and its value.
std::wstring windowText(const ReceivedStart &start);

/// The text of the record: the lines "executable=" and "commandline=", then one line per environment
/// variable, each ended by a line feed.
std::wstring recordText(const ReceivedStart &start);
