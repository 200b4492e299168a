#include "values/ole_date_time_text.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <optional>

#include "values/date_text.h"
#include "values/number_text.h"

namespace orvell::values {
namespace {

constexpr double kLastSerial = 2958465.9999999884;  // one millisecond before the end of 9999
constexpr double kSerialBeforeFirst = -657435.0;
constexpr double kFirstSerial = kFirstSerialDay;
constexpr double kDaysPerMillisecond = 1.1574074074074074e-8;

double Limit(double serial) {
    if (std::isnan(serial)) {
        return 0.0;
    }
    if (serial > kLastSerial) {
        return kLastSerial;
    }
    return serial <= kSerialBeforeFirst ? kFirstSerial : serial;
}

double AddTime(double serial, const ClockTime& time) {
    // Signed, since the conversion of an unsigned integer may add in the x87 unit, whose precision
    // is the host's affair.
    const std::int64_t seconds = (std::int64_t{time.hours} * 60 + time.minutes) * 60 + time.seconds;
    const std::int64_t milliseconds = seconds * 1000 + time.milliseconds;
    const double fraction = static_cast<double>(milliseconds) * kDaysPerMillisecond;
    return serial < 0.0 ? serial - fraction : serial + fraction;
}

/// Moves the integer part of `rest`, which is not negative, into the result.
std::uint32_t TakeWhole(double& rest) {
    const auto whole = static_cast<std::int32_t>(rest);
    rest -= whole;
    return static_cast<std::uint32_t>(whole);
}

/// Leaves `limit` or more out of `part` and counts one more of the next larger part.
void Carry(std::uint32_t& part, std::uint32_t limit, std::uint32_t& larger) {
    if (part >= limit) {
        part -= limit;
        ++larger;
    }
}

/// The time of day of a fraction of a day, to the nearest millisecond. What is rounded up to a full
/// day stays hour 24 of its day.
ClockTime ClockOfFraction(double fraction) {
    ClockTime clock;
    double rest = fraction * 24;
    clock.hours = TakeWhole(rest);
    rest *= 60;
    clock.minutes = TakeWhole(rest);
    rest *= 60;
    clock.seconds = TakeWhole(rest);
    rest *= 1000;
    clock.milliseconds = TakeWhole(rest);
    if (rest > 0.5) {
        ++clock.milliseconds;
        Carry(clock.milliseconds, 1000, clock.seconds);
        Carry(clock.seconds, 60, clock.minutes);
        Carry(clock.minutes, 60, clock.hours);
    }
    return clock;
}

}  // namespace

double SerialOf(const CalendarDate& date, const ClockTime& time) {
    return Limit(AddTime(SerialOfDate(date), time));
}

double ReadOleDateTime(std::string_view text, DateFormatCode format) {
    const std::optional<DateReading> date = ReadDate(text, format);
    double serial = date ? SerialOfDate(date->date) : 0.0;
    if (const auto time = ReadClockWithMilliseconds(text, date ? date->end : 0)) {
        serial = AddTime(serial, *time);
    }
    return Limit(serial);
}

void AppendOleDateTime(std::string& text, double serial, DateFormatCode format) {
    const double shown = Limit(serial);
    const auto day = static_cast<std::int32_t>(shown);
    if (day != 0) {
        AppendDate(text, DateOfSerial(day), format);
        text += ' ';
    }
    const ClockTime clock = ClockOfFraction(std::abs(shown - day));
    AppendClock(text, clock);
    std::array<char, 1 + kMaximumDigits32> milliseconds = {','};
    char* const end = WriteZeroPadded(milliseconds.data() + 1, clock.milliseconds, 3);
    text.append(milliseconds.data(), end);
}

}  // namespace orvell::values
