#include "exhaustive/counter_checks.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "exhaustive/odometers.h"

namespace orvell::exhaustive {
namespace {

using values::BaseTypeCode;
using values::DateFormatCode;
using values::TypeDescription;

/// The text of a DURATION, whose milliseconds are all shown.
class DurationText {
  public:
    DurationText(const TypeDescription& /*type*/, std::uint32_t first)
        : count_(first), odometer_(first) {}

    /// Goes on to the next count; true when that one has another text.
    bool Step() {
        ++count_;
        odometer_.Step();
        return true;
    }

    [[nodiscard]] std::string_view Text() const { return odometer_.Text(); }
    [[nodiscard]] std::uint32_t ReadBack() const { return count_; }

  private:
    std::uint32_t count_;
    DurationOdometer odometer_;
};

/// The text of a TIME, which shows no days.
class TimeText {
  public:
    TimeText(const TypeDescription& /*type*/, std::uint32_t first)
        : secondOfDay_(first % kSecondsOfDay), clock_(secondOfDay_) {}

    bool Step() {
        secondOfDay_ = clock_.Step() ? 0 : secondOfDay_ + 1;
        return true;
    }

    [[nodiscard]] std::string_view Text() const { return clock_.Text(); }
    [[nodiscard]] std::uint32_t ReadBack() const { return secondOfDay_; }

  private:
    std::uint32_t secondOfDay_;
    ClockOdometer clock_;
};

/// The text of a DATE, which shows no time.
class DateText {
  public:
    DateText(const TypeDescription& type, std::uint32_t first)
        : date_(type.dateFormat == DateFormatCode::MonthFirst, first / kSecondsOfDay),
          startOfDay_(first / kSecondsOfDay * kSecondsOfDay),
          secondOfDay_(first - startOfDay_) {}

    bool Step() {
        if (++secondOfDay_ < kSecondsOfDay) {
            return false;
        }
        secondOfDay_ = 0;
        startOfDay_ += kSecondsOfDay;
        date_.Step();
        return true;
    }

    [[nodiscard]] std::string_view Text() const { return date_.Text(); }
    [[nodiscard]] std::uint32_t ReadBack() const { return startOfDay_; }

  private:
    DateOdometer date_;
    std::uint32_t startOfDay_;
    std::uint32_t secondOfDay_;
};

class DateTimeText {
  public:
    DateTimeText(const TypeDescription& type, std::uint32_t first)
        : count_(first),
          date_(type.dateFormat == DateFormatCode::MonthFirst, first / kSecondsOfDay),
          clock_(first % kSecondsOfDay) {
        WriteDate();
        WriteClock();
    }

    bool Step() {
        ++count_;
        if (clock_.Step()) {
            date_.Step();
            WriteDate();
        }
        WriteClock();
        return true;
    }

    [[nodiscard]] std::string_view Text() const { return {text_.data(), text_.size()}; }
    [[nodiscard]] std::uint32_t ReadBack() const { return count_; }

  private:
    void WriteDate() {
        std::copy_n(date_.Text().data(), DateOdometer::kLength, text_.data());
        text_[DateOdometer::kLength] = ' ';
    }
    void WriteClock() {
        std::copy_n(clock_.Text().data(), ClockOdometer::kLength,
                    text_.data() + DateOdometer::kLength + 1);
    }

    std::uint32_t count_;
    DateOdometer date_;
    ClockOdometer clock_;
    std::array<char, DateOdometer::kLength + 1 + ClockOdometer::kLength> text_;
};

void CheckReadingBack(const values::ValueConverterSet& converters, const TypeDescription& type,
                      std::string_view text, std::uint32_t expected, Differences& differences) {
    std::uint32_t count = ~expected;
    std::array<std::uint8_t, sizeof count> buffer;
    std::memcpy(buffer.data(), &count, sizeof count);
    const bool isStored =
        converters.TextToValue(type, buffer, text, values::DisplayFormat::Default);
    std::memcpy(&count, buffer.data(), sizeof count);
    if (!isStored || count != expected) {
        differences.Add("count from", text, std::to_string(count), std::to_string(expected));
    }
}

template <typename ExpectedText>
void CheckCounts(const values::ValueConverterSet& converters, const TypeDescription& type,
                 Range values, Differences& differences) {
    if (values.first == values.end) {
        return;
    }
    std::string text;
    ExpectedText expected(type, static_cast<std::uint32_t>(values.first));
    bool isNewText = true;
    for (std::uint64_t value = values.first; value != values.end; ++value) {
        const auto count = static_cast<std::uint32_t>(value);
        std::array<std::uint8_t, sizeof count> buffer;
        std::memcpy(buffer.data(), &count, sizeof count);
        const bool isShown =
            converters.ValueToText(type, buffer, text, values::DisplayFormat::Default, true);
        if (!isShown || text != expected.Text()) {
            differences.Add("count", std::to_string(count), text, expected.Text());
        }
        if (isNewText) {
            CheckReadingBack(converters, type, expected.Text(), expected.ReadBack(), differences);
        }
        isNewText = expected.Step();
    }
}

constexpr TypeDescription DateType(BaseTypeCode baseType, DateFormatCode format) {
    return {.baseType = baseType, .dateFormat = format};
}

}  // namespace

void CheckDurations(const values::ValueConverterSet& converters, Range values,
                    Differences& differences) {
    CheckCounts<DurationText>(converters, {BaseTypeCode::Duration}, values, differences);
}

void CheckTimes(const values::ValueConverterSet& converters, Range values,
                Differences& differences) {
    CheckCounts<TimeText>(converters, {BaseTypeCode::Time}, values, differences);
}

void CheckDatesDayFirst(const values::ValueConverterSet& converters, Range values,
                        Differences& differences) {
    CheckCounts<DateText>(converters, DateType(BaseTypeCode::Date, DateFormatCode::DayFirst),
                          values, differences);
}

void CheckDatesMonthFirst(const values::ValueConverterSet& converters, Range values,
                          Differences& differences) {
    CheckCounts<DateText>(converters, DateType(BaseTypeCode::Date, DateFormatCode::MonthFirst),
                          values, differences);
}

void CheckDateTimesDayFirst(const values::ValueConverterSet& converters, Range values,
                            Differences& differences) {
    CheckCounts<DateTimeText>(converters,
                              DateType(BaseTypeCode::DateTime, DateFormatCode::DayFirst), values,
                              differences);
}

void CheckDateTimesMonthFirst(const values::ValueConverterSet& converters, Range values,
                              Differences& differences) {
    CheckCounts<DateTimeText>(converters,
                              DateType(BaseTypeCode::DateTime, DateFormatCode::MonthFirst), values,
                              differences);
}

}  // namespace orvell::exhaustive
