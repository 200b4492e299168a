#pragma once

#include <cstdio>
#include <cstdlib>

namespace orvell::fuzz {

/// Ends the program, as the engine expects of a finding, when what must hold does not.
inline void Require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

}  // namespace orvell::fuzz
