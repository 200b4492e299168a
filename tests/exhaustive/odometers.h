#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orvell::exhaustive {

// Texts of consecutive counts. An odometer steps its text from one count to the next as a counter's
// wheels turn; it divides only to set itself to the first count.

inline constexpr std::uint32_t kSecondsOfDay = 24 * 60 * 60;

/// HH:MM:SS
class ClockOdometer {
  public:
    static constexpr std::size_t kLength = 8;

    explicit ClockOdometer(std::uint32_t secondOfDay);

    /// Turns on by one second; true when midnight is passed.
    bool Step();

    [[nodiscard]] std::string_view Text() const { return {text_.data(), kLength}; }

  private:
    std::array<char, kLength> text_;
};

/// DD.MM.YYYY, or MM/DD/YYYY. The first day is 1 January 1970.
class DateOdometer {
  public:
    static constexpr std::size_t kLength = 10;

    DateOdometer(bool isMonthFirst, std::uint32_t day);

    /// Turns on by one day.
    void Step();

    [[nodiscard]] std::string_view Text() const { return {text_.data(), kLength}; }

  private:
    void StepDay();
    void WriteText();

    bool isMonthFirst_;
    unsigned day_ = 1;
    unsigned month_ = 1;
    unsigned year_ = 1970;
    std::array<char, kLength> text_;
};

/// "D d H h M min S s N ms" without the parts that are 0, but "0 ms" for nothing.
class DurationOdometer {
  public:
    explicit DurationOdometer(std::uint32_t milliseconds);

    /// Turns on by one millisecond.
    void Step();

    [[nodiscard]] std::string_view Text() const { return {text_.data(), length_}; }

  private:
    void StepSecond();
    void WriteSeconds();
    void WriteMilliseconds();
    void Append(char character) { text_[length_++] = character; }
    void AppendPart(unsigned count, std::string_view unit);

    unsigned days_;
    unsigned hours_;
    unsigned minutes_;
    unsigned seconds_;
    unsigned milliseconds_;
    std::size_t lengthOfSeconds_ = 0;  // of the parts down to the seconds
    std::size_t length_ = 0;
    std::array<char, 64> text_;
};

}  // namespace orvell::exhaustive
