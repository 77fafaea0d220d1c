#pragma once

#include "companions/helper/HelperRequest.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace HelperLimits {

/// Of a variable's value and of a path, in characters.
constexpr std::size_t text = 4096;
/// Of a library's path: regsvr32 loads none with a longer one.
constexpr std::size_t libraryPath = 259;
/// Of a licence file, in bytes; real ones have a few thousand.
constexpr std::uint64_t licenseSize = 1048576;

} // namespace HelperLimits

/// What there is under a path.
struct FileFacts {
    enum class Kind {
        missing,
        directory,
        file,
        unknown, ///< neither of these, or it could not be found out
    };
    Kind kind = Kind::unknown;
    bool reparsePoint = false;
    bool elsewhere = false;   ///< what was opened lies under another path than the one that was asked for
    std::uint64_t size = 0;   ///< in bytes
    std::uint32_t links = 0;  ///< how many names the file has
    std::uint32_t volume = 0; ///< volume and index together identify a file
    std::uint64_t index = 0;
};

/// Whether something can be replaced by a licence file: nothing at all, or an ordinary file without a second name.
bool isReplaceable(const FileFacts &destination);

bool isSameFile(const FileFacts &one, const FileFacts &other);

/// What there is under a path and under every directory above it, from the top; the last is the path's own.
using WayFacts = std::vector<FileFacts>;

// Each of the following gives the reason to refuse, a sentence for the user, or nothing.

/// All that can be told of a request without looking at the machine: the names, the values, the forms of the paths.
std::wstring refusalOfRequest(const HelperRequest &request);

std::wstring refusalOfLibrary(const WayFacts &library);

std::wstring refusalOfCopy(const WayFacts &source, const WayFacts &licenseDirectory,
                           const FileFacts &destination);
