#include "exhaustive/odometers.h"

namespace orvell::exhaustive {
namespace {

void WriteTwoDigits(char* out, unsigned value) {
    out[0] = static_cast<char>('0' + value / 10);
    out[1] = static_cast<char>('0' + value % 10);
}

/// Turns a wheel of two digits; true when it passes `end` and begins again.
bool StepTwoDigits(char* digits, std::string_view end) {
    if (++digits[1] > '9') {
        digits[1] = '0';
        ++digits[0];
    }
    if (digits[0] != end[0] || digits[1] != end[1]) {
        return false;
    }
    digits[0] = '0';
    digits[1] = '0';
    return true;
}

unsigned LengthOfMonth(unsigned month, unsigned year) {
    switch (month) {
        case 2:
            return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0) ? 29 : 28;
        case 4:
        case 6:
        case 9:
        case 11:
            return 30;
        default:
            return 31;
    }
}

}  // namespace

ClockOdometer::ClockOdometer(std::uint32_t secondOfDay) {
    WriteTwoDigits(&text_[0], secondOfDay / 3600);
    text_[2] = ':';
    WriteTwoDigits(&text_[3], secondOfDay / 60 % 60);
    text_[5] = ':';
    WriteTwoDigits(&text_[6], secondOfDay % 60);
}

bool ClockOdometer::Step() {
    return StepTwoDigits(&text_[6], "60") && StepTwoDigits(&text_[3], "60") &&
           StepTwoDigits(&text_[0], "24");
}

DateOdometer::DateOdometer(bool isMonthFirst, std::uint32_t day) : isMonthFirst_(isMonthFirst) {
    for (std::uint32_t i = 0; i < day; ++i) {
        StepDay();
    }
    WriteText();
}

void DateOdometer::Step() {
    StepDay();
    WriteText();
}

void DateOdometer::StepDay() {
    if (++day_ <= LengthOfMonth(month_, year_)) {
        return;
    }
    day_ = 1;
    if (++month_ > 12) {
        month_ = 1;
        ++year_;
    }
}

void DateOdometer::WriteText() {
    const char separator = isMonthFirst_ ? '/' : '.';
    WriteTwoDigits(&text_[0], isMonthFirst_ ? month_ : day_);
    text_[2] = separator;
    WriteTwoDigits(&text_[3], isMonthFirst_ ? day_ : month_);
    text_[5] = separator;
    WriteTwoDigits(&text_[6], year_ / 100);
    WriteTwoDigits(&text_[8], year_ % 100);
}

DurationOdometer::DurationOdometer(std::uint32_t milliseconds)
    : days_(milliseconds / 86400000),
      hours_(milliseconds / 3600000 % 24),
      minutes_(milliseconds / 60000 % 60),
      seconds_(milliseconds / 1000 % 60),
      milliseconds_(milliseconds % 1000) {
    WriteSeconds();
    WriteMilliseconds();
}

void DurationOdometer::Step() {
    if (++milliseconds_ == 1000) {
        milliseconds_ = 0;
        StepSecond();
        WriteSeconds();
    }
    WriteMilliseconds();
}

void DurationOdometer::StepSecond() {
    if (++seconds_ != 60) {
        return;
    }
    seconds_ = 0;
    if (++minutes_ != 60) {
        return;
    }
    minutes_ = 0;
    if (++hours_ == 24) {
        hours_ = 0;
        ++days_;
    }
}

void DurationOdometer::WriteSeconds() {
    length_ = 0;
    AppendPart(days_, "d");
    AppendPart(hours_, "h");
    AppendPart(minutes_, "min");
    AppendPart(seconds_, "s");
    lengthOfSeconds_ = length_;
}

void DurationOdometer::WriteMilliseconds() {
    length_ = lengthOfSeconds_;
    AppendPart(milliseconds_, "ms");
    if (length_ == 0) {
        for (const char character : std::string_view("0 ms")) {
            Append(character);
        }
    }
}

void DurationOdometer::AppendPart(unsigned count, std::string_view unit) {
    if (count == 0) {
        return;
    }
    if (length_ != 0) {
        Append(' ');
    }
    for (unsigned place = 10000; place != 0; place /= 10) {
        if (count >= place) {
            Append(static_cast<char>('0' + count / place % 10));
        }
    }
    Append(' ');
    for (const char character : unit) {
        Append(character);
    }
}

}  // namespace orvell::exhaustive
