#include "fuzz/boundary/decimal_model.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace orvell::fuzz {
namespace {

std::size_t SkipBlanks(const std::string& text) {
    return std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size());
}

std::size_t SkipDigits(const std::string& text, std::size_t position) {
    return std::min(text.find_first_not_of("0123456789", position), text.size());
}

bool IsSign(const std::string& text, std::size_t position) {
    return position < text.size() && (text[position] == '+' || text[position] == '-');
}

/// The end of the longest number that the text from `start` on spells.
std::size_t EndOfNumber(const std::string& text, std::size_t start) {
    std::size_t end = start + (IsSign(text, start) ? 1 : 0);
    end = SkipDigits(text, end);
    if (end < text.size() && text[end] == '.') {
        end = SkipDigits(text, end + 1);
    }
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        const std::size_t digits = end + (IsSign(text, end + 1) ? 2 : 1);
        const std::size_t exponentEnd = SkipDigits(text, std::min(digits, text.size()));
        end = exponentEnd > digits ? exponentEnd : end;
    }
    return end;
}

}  // namespace

std::int64_t ReadInteger(const std::string& text) {
    std::size_t position = SkipBlanks(text);
    const bool isNegative = IsSign(text, position) && text[position] == '-';
    position += IsSign(text, position) ? 1 : 0;
    std::uint64_t integer = 0;
    for (const std::size_t end = SkipDigits(text, position); position < end; ++position) {
        integer = integer * 10 + static_cast<std::uint64_t>(text[position] - '0');
    }
    return static_cast<std::int64_t>(isNegative ? 0 - integer : integer);
}

void ReadNumber(const std::string& text, double& number) {
    const std::size_t start = SkipBlanks(text);
    number = std::strtod(text.substr(start, EndOfNumber(text, start) - start).c_str(), nullptr);
}

std::int64_t ReadInteger64(std::string text) {
    if (text.find_first_of(",eE") == std::string::npos) {
        return ReadInteger(text);
    }
    for (char& character : text) {
        character = character == ',' ? '.' : character;
    }
    double number = 0;
    ReadNumber(text, number);
    char rounded[512];
    std::snprintf(rounded, sizeof rounded, "%-22.1f", number);
    return ReadInteger(rounded);
}

}  // namespace orvell::fuzz
