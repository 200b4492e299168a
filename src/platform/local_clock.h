#pragma once

#include <cstdint>

namespace orvell::platform {

/// A civil date and time of day; month and day count from 1.
struct CivilTime {
    std::uint32_t year;
    std::uint32_t month;
    std::uint32_t day;
    std::uint32_t hour;
    std::uint32_t minute;
    std::uint32_t second;
};

/// Tells the local time; tests put a fixed one in its place.
class LocalClock {
  public:
    LocalClock() = default;
    LocalClock(const LocalClock&) = delete;
    LocalClock& operator=(const LocalClock&) = delete;
    virtual ~LocalClock() = default;

    [[nodiscard]] virtual CivilTime Now() const = 0;
};

/// The system's clock in the user's time zone.
[[nodiscard]] const LocalClock& SystemLocalClock();

}  // namespace orvell::platform
