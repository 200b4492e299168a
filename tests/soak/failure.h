#pragma once

#include <stdexcept>
#include <string>

namespace orvell::soak {

/// What the module must not do; ends the soak.
struct Failure : std::runtime_error {
    using runtime_error::runtime_error;
};

inline void Require(bool holds, const std::string& what) {
    if (!holds) {
        throw Failure(what);
    }
}

}  // namespace orvell::soak
