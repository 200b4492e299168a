#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace orvell::fuzz {

// Each takes what it finds off the beginning of a text.

inline constexpr std::string_view kBlanks = " \t";
inline constexpr std::string_view kDigits = "0123456789";

/// Larger numbers in dates and times make sums that wrap; what these mean is not told here.
inline constexpr std::uint32_t kLargestNumber = 30000;

inline void SkipAll(std::string_view& rest, std::string_view characters) {
    rest.remove_prefix(std::min(rest.find_first_not_of(characters), rest.size()));
}

/// The number, modulo 2^32, behind blanks.
inline std::optional<std::uint32_t> TakeNumber(std::string_view& rest) {
    SkipAll(rest, kBlanks);
    const std::string_view digits = rest.substr(0, rest.find_first_not_of(kDigits));
    std::uint32_t number = 0;
    for (const char digit : digits) {
        number = number * 10 + static_cast<std::uint32_t>(digit - '0');
    }
    rest.remove_prefix(digits.size());
    return digits.empty() ? std::nullopt : std::optional(number);
}

/// One of the separators, and blanks before it; false and only the blanks when there is none.
inline bool TakeSeparator(std::string_view& rest, std::string_view separators) {
    SkipAll(rest, kBlanks);
    const bool isThere = !rest.empty() && separators.find(rest.front()) != std::string_view::npos;
    rest.remove_prefix(isThere ? 1 : 0);
    return isThere;
}

struct WrittenDate {
    std::uint32_t day;
    std::uint32_t month;
    std::uint32_t year;

    [[nodiscard]] bool IsTold() const { return std::max({day, month, year}) <= kLargestNumber; }
};

/// D.M.Y or M/D/Y; none when it is no date.
inline std::optional<WrittenDate> TakeDate(std::string_view& rest) {
    auto day = TakeNumber(rest);
    const bool isMonthFirst = !TakeSeparator(rest, ".");
    if (!day || (isMonthFirst && !TakeSeparator(rest, "/"))) {
        return std::nullopt;
    }
    auto month = TakeNumber(rest);
    if (!month || !TakeSeparator(rest, isMonthFirst ? "/" : ".")) {
        return std::nullopt;
    }
    const auto year = TakeNumber(rest);
    if (!year) {
        return std::nullopt;
    }
    if (isMonthFirst) {
        std::swap(day, month);
    }
    return WrittenDate{*day, *month, *year};
}

}  // namespace orvell::fuzz
