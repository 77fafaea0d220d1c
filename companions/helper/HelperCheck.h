#pragma once

#include "companions/helper/HelperRequest.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// How many characters a variable's value and a path may have.
constexpr std::size_t longestText = 4096;

/// What there is under a path.
struct FileFacts {
    enum class Kind {
        unknown, ///< it could not be opened; it may be missing
        directory,
        file,
        other, ///< something that is neither, such as a device
    };
    Kind kind = Kind::unknown;
    std::uint32_t error = 0; ///< Windows' number for why it is unknown
    bool reparsePoint = false;
    bool elsewhere =
        false; ///< it does not lie under the path that was asked for, as far as Windows says where
};

// Each of the following gives the reason to refuse, a sentence for the user that names the path, or nothing.

/// All that can be told of a request without looking at the machine: the names, the values, the forms of the paths.
std::wstring refusalOfRequest(const HelperRequest &request);

/// Whatever is not an existing file. How it is reached does not count.
std::wstring refusalOfFile(const std::wstring &path, const FileFacts &facts);

/// Whatever is not an existing directory, and each detour.
std::wstring refusalOfDirectory(const std::wstring &path, const FileFacts &facts);

/// Whatever a licence file cannot take the place of: all but an ordinary file and nothing.
std::wstring refusalOfDestination(const std::wstring &path, const FileFacts &facts);

/// A licence file of this size, in bytes.
std::wstring refusalOfSize(const std::wstring &path, std::int64_t size);

/// What Windows did not open or read for the reason with this number.
std::wstring refusalOfReading(const std::wstring &path, std::uint32_t error);
