#include "paramlist/strict_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

#include "values/characters.h"
#include "values/double_text.h"

namespace orvell::paramlist {
namespace {

/// Reads digits after an optional sign; none if anything else is in the text.
std::optional<StrictInteger> ReadDigits(std::string_view text) {
    const bool hasPlus = text.starts_with('+');
    const char* const begin = text.data() + (hasPlus ? 1 : 0);
    const char* const end = text.data() + text.size();
    if (hasPlus && begin != end && *begin == '-') {
        return std::nullopt;
    }
    StrictInteger integer = {.value = 0, .isExact = true};
    const auto [stop, error] = std::from_chars(begin, end, integer.value);
    if (error == std::errc::invalid_argument || stop != end) {
        return std::nullopt;
    }
    if (error == std::errc::result_out_of_range) {
        using Limits = std::numeric_limits<std::int64_t>;
        return StrictInteger{text.front() == '-' ? Limits::min() : Limits::max(), false};
    }
    return integer;
}

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
    while (!text.empty() && values::IsBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && values::IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::optional<StrictInteger> ReadStrictInteger(std::string_view text) {
    if (text.find_first_of(",eE") == std::string_view::npos) {
        return ReadDigits(text);
    }
    const std::optional<double> number = ReadStrictDouble(text);
    if (!number) {
        return std::nullopt;
    }
    std::string print;
    values::AppendFixed(print, *number, 1);
    return ReadDigits(std::string_view(print).substr(0, print.find('.')));
}

std::optional<double> ReadStrictDouble(std::string_view text) {
    if (text.empty() || values::IsWhiteSpace(text.front())) {
        return std::nullopt;
    }
    std::string withPoint(text);
    std::replace(withPoint.begin(), withPoint.end(), ',', '.');
    const values::DoubleScan scan = values::ScanDouble(withPoint);
    if (scan.length != text.size() || !std::isfinite(scan.value)) {
        return std::nullopt;
    }
    return scan.value;
}

}  // namespace orvell::paramlist
