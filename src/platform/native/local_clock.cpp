#include "platform/local_clock.h"

#include <ctime>

namespace orvell::platform {

namespace {

class SystemClock final : public LocalClock {
  public:
    CivilTime Now() const override {
        const std::time_t now = std::time(nullptr);
        std::tm local{};
        localtime_r(&now, &local);
        return {static_cast<std::uint32_t>(local.tm_year + 1900),
                static_cast<std::uint32_t>(local.tm_mon + 1),
                static_cast<std::uint32_t>(local.tm_mday),
                static_cast<std::uint32_t>(local.tm_hour),
                static_cast<std::uint32_t>(local.tm_min),
                static_cast<std::uint32_t>(local.tm_sec)};
    }
};

}  // namespace

const LocalClock& SystemLocalClock() {
    static const SystemClock clock;
    return clock;
}

}  // namespace orvell::platform
