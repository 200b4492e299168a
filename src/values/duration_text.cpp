#include "values/duration_text.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "values/characters.h"
#include "values/number_text.h"

namespace orvell::values {
namespace {

struct DurationUnit {
    std::string_view name;
    std::uint32_t milliseconds;
};

constexpr std::array<DurationUnit, 5> kUnits = {
    {{"d", 86400000}, {"h", 3600000}, {"min", 60000}, {"s", 1000}, {"ms", 1}}};

enum State : std::size_t { Between, Junk, Number, AfterNumber, Unit };
enum Column : std::size_t { Blank, Digit, Other };

constexpr std::array<std::array<State, 3>, 5> kDurationTable = {{
    // blank    digit    other
    {Between, Number, Junk},      // between two pairs
    {Between, Number, Junk},      // junk
    {AfterNumber, Number, Unit},  // number
    {AfterNumber, Unit, Unit},    // after number
    {Between, Unit, Unit},        // unit
}};

Column ColumnOf(char character) {
    if (IsBlank(character)) {
        return Blank;
    }
    return IsDigit(character) ? Digit : Other;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return ToUpperAscii(a) == ToUpperAscii(b); });
}

std::uint32_t FactorOf(std::string_view unitName) {
    for (const DurationUnit& unit : kUnits) {
        if (EqualsIgnoringCase(unit.name, unitName)) {
            return unit.milliseconds;
        }
    }
    return 0;
}

}  // namespace

std::uint32_t ReadDuration(std::string_view text) {
    std::uint32_t total = 0;
    std::uint32_t number = 0;
    std::size_t unitStart = 0;
    State state = Between;
    for (std::size_t position = 0; position < text.size(); ++position) {
        const State previous = state;
        state = kDurationTable[previous][ColumnOf(text[position])];
        if (state == Number) {
            number = (previous == Number ? number * 10 : 0) + DigitValue(text[position]);
        } else if (state == Unit && previous != Unit) {
            unitStart = position;
        } else if (previous == Unit && state == Between) {
            total += number * FactorOf(text.substr(unitStart, position - unitStart));
        }
    }
    if (state == Unit) {
        total += number * FactorOf(text.substr(unitStart));
    } else if (state == Number || state == AfterNumber) {
        total += number;
    }
    return total;
}

void AppendDuration(std::string& text, std::uint32_t milliseconds) {
    if (milliseconds == 0) {
        text += "0 ms";
        return;
    }
    std::uint32_t rest = milliseconds;
    for (const DurationUnit& unit : kUnits) {
        const std::uint32_t count = rest / unit.milliseconds;
        rest %= unit.milliseconds;
        if (count == 0) {
            continue;
        }
        AppendUnsigned(text, count);
        text += ' ';
        text += unit.name;
        if (rest != 0) {
            text += ' ';
        }
    }
}

}  // namespace orvell::values
