#include "fuzz/texts/address_reference.h"

namespace orvell::fuzz {
namespace {

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

/// False when anything but digits and one point is in `text`.
bool SplitNumbers(std::string_view text, SplitAddress& address) {
    for (const char character : text) {
        if (character == '.' && !address.isDotted) {
            address.isDotted = true;
        } else if (!IsDigit(character)) {
            return false;
        } else {
            (address.isDotted ? address.lastDigits : address.digits) += character;
        }
    }
    return true;
}

}  // namespace

SplitAddress SplitBehindKeyword(std::string_view text, std::size_t shortestKeyword) {
    for (std::size_t length = shortestKeyword; length < text.size(); ++length) {
        SplitAddress address;
        if (SplitNumbers(text.substr(length), address)) {
            address.keyword = text.substr(0, length);
            return address;
        }
    }
    return {.keyword = std::string(text), .digits = {}, .lastDigits = {}};
}

std::uint32_t NumberOfDigits(std::string_view digits) {
    constexpr std::uint64_t kModulus = 0x1'0000'0000;
    std::uint64_t number = 0;
    for (const char digit : digits) {
        number = (number * 10 + static_cast<std::uint64_t>(digit - '0')) % kModulus;
    }
    return static_cast<std::uint32_t>(number);
}

std::optional<std::uint32_t> CsvNumberOf(const SplitAddress& address, bool isBit) {
    const std::uint32_t number = NumberOfDigits(address.digits);
    if (!address.isDotted) {
        return number;
    }
    const std::uint32_t bit = NumberOfDigits(address.lastDigits);
    if (!isBit || address.lastDigits.size() != 1 || bit > 7) {
        return std::nullopt;
    }
    return number * 8 + bit;
}

}  // namespace orvell::fuzz
