#pragma once

#include <cstdint>

namespace orvell::host {

/// Lets one request through once: the host gives each request a token before it calls, so that the
/// same request to several modules, or repeated from within a message box, does its work only once.
class CallTokenGuard {
  public:
    /// Forgets both tokens.
    void Reset() { *this = CallTokenGuard(); }

    /// The token of the calls that follow; 0 for a host that gives none.
    void SetToken(std::uint32_t token) { current_ = token; }

    /// True when the call may do its work: always under token 0, else for a token's first call. A
    /// token counts as new when it differs from the last one under which a call was admitted.
    [[nodiscard]] bool Admit() {
        if (current_ == 0) {
            return true;
        }
        const bool isNew = current_ != last_;
        last_ = current_;
        return isNew;
    }

  private:
    std::uint32_t current_ = 0;
    std::uint32_t last_ = 0;
};

}  // namespace orvell::host
