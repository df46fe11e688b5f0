#pragma once

#include <cstdio>
#include <cstdlib>

namespace fiscarel::testing {

/// Ends the fuzzing with a finding when something does not hold.
inline void require(bool holds, const char* claim) {
    if (!holds) {
        std::fprintf(stderr, "violated: %s\n", claim);
        std::abort();
    }
}

} // namespace fiscarel::testing
