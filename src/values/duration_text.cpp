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

enum State : std::size_t { kBetween, kJunk, kNumber, kAfterNumber, kUnit };
enum Column : std::size_t { kBlank, kDigit, kOther };

constexpr std::array<std::array<State, 3>, 5> kDurationTable = {{
    // blank    digit    other
    {kBetween, kNumber, kJunk},      // between two pairs
    {kBetween, kNumber, kJunk},      // junk
    {kAfterNumber, kNumber, kUnit},  // number
    {kAfterNumber, kUnit, kUnit},    // after number
    {kBetween, kUnit, kUnit},        // unit
}};

Column ColumnOf(char character) {
    if (IsBlank(character)) {
        return kBlank;
    }
    return IsDigit(character) ? kDigit : kOther;
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
    State state = kBetween;
    for (std::size_t position = 0; position < text.size(); ++position) {
        const State previous = state;
        state = kDurationTable[previous][ColumnOf(text[position])];
        if (state == kNumber) {
            number = (previous == kNumber ? number * 10 : 0) + DigitValue(text[position]);
        } else if (state == kUnit && previous != kUnit) {
            unitStart = position;
        } else if (previous == kUnit && state == kBetween) {
            total += number * FactorOf(text.substr(unitStart, position - unitStart));
        }
    }
    if (state == kUnit) {
        total += number * FactorOf(text.substr(unitStart));
    } else if (state == kNumber || state == kAfterNumber) {
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
