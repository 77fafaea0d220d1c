#pragma once

#include <cstdint>

/// The largest licence file that is installed, in bytes; real ones have a few thousand bytes.
constexpr std::int64_t largestLicense = 1048576;
