#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the fuzzer, which then keeps its input as a finding, unless the property @p holds. @p property says
/// what must hold, for the developer.
inline void require(bool holds, const char *property)
{
    if (!holds) {
        std::fprintf(stderr, "Does not hold: %s\n", property);
        std::abort();
    }
}
