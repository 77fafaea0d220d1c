#pragma once

#include "companions/helper/HelperRequest.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// The most characters that a variable's value or a path may have.
constexpr std::size_t longestText = 4096;

/// What a path names.
struct FileFacts {
    enum class Kind {
        unknown, ///< it could not be opened; it may be missing
        directory,
        file,
        other, ///< neither of them, such as a device
    };
    Kind kind = Kind::unknown;
    std::uint32_t error = 0; ///< Windows' error code when the kind is unknown
    bool reparsePoint = false;
    bool elsewhere = false; ///< its final path is not the one asked for, as far as Windows tells
};

// Each of the following returns why it refuses, a sentence for the user that names the path, or an empty
// string.

/// Checks everything that needs no look at the machine: the names, the values, the forms of the paths.
std::wstring refusalOfRequest(const HelperRequest &request);

/// Refuses whatever is not an existing file, however it is reached.
std::wstring refusalOfFile(const std::wstring &path, const FileFacts &facts);

/// Refuses whatever is not an existing directory or is reached by a detour.
std::wstring refusalOfDirectory(const std::wstring &path, const FileFacts &facts);

/// Refuses a destination that is neither an ordinary file nor missing, or is reached by a detour.
std::wstring refusalOfDestination(const std::wstring &path, const FileFacts &facts);

/// Refuses an empty or too large licence file; @p size is in bytes.
std::wstring refusalOfSize(const std::wstring &path, std::int64_t size);

/// Refuses a file that Windows could not open or read, with this error code.
std::wstring refusalOfReading(const std::wstring &path, std::uint32_t error);
