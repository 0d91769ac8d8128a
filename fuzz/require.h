#pragma once

#include <cstdio>
#include <cstdlib>

namespace quillon {

/// Ends a fuzz run that has found what must never be.
inline void require(bool holds, const char* rule) {
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", rule);
        std::abort();
    }
}

}  // namespace quillon
