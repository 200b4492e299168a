#include "fuzz/texts/format_reference.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>

namespace orvell::fuzz {
namespace {

using resources::FormatArgument;

struct Conversion {
    std::string flags;
    std::string width;      ///< digits
    std::string precision;  ///< with its point
    std::string length;
    char letter = 0;
    std::size_t size = 0;
};

/// The characters at `position` that are among the given ones.
std::string Take(std::string_view format, std::size_t& position, std::string_view characters) {
    const std::size_t start = position;
    position = std::min(format.find_first_not_of(characters, start), format.size());
    return std::string(format.substr(start, position - start));
}

/// Digits, limited to 4096.
std::string TakeLimited(std::string_view format, std::size_t& position) {
    constexpr std::string_view kDigits = "0123456789";
    std::string digits = Take(format, position, kDigits);
    digits.erase(0, digits.find_first_not_of('0'));
    const bool isTooLarge = digits.size() > 4 || (digits.size() == 4 && digits > "4096");
    return isTooLarge ? "4096" : digits;
}

/// The conversion whose "%" is at `start`.
std::optional<Conversion> TakeConversion(std::string_view format, std::size_t start) {
    Conversion conversion;
    std::size_t position = start + 1;
    conversion.flags = Take(format, position, "-0+ #");
    conversion.width = TakeLimited(format, position);
    if (format.substr(position).starts_with('.')) {
        ++position;
        conversion.precision = '.' + TakeLimited(format, position);
    }
    for (const std::string_view length : {"hh", "h", "ll", "l", "I32", "I64"}) {
        if (format.substr(position).starts_with(length)) {
            conversion.length = length.starts_with('h') ? length : "";
            position += length.size();
            break;
        }
    }
    if (position == format.size() ||
        std::string_view("diuxXcs").find(format[position]) == std::string_view::npos) {
        return std::nullopt;
    }
    conversion.letter = format[position];
    conversion.size = position + 1 - start;
    return conversion;
}

/// Only the flags that C defines for the letter.
std::string DefinedFlags(const Conversion& conversion) {
    std::string_view defined = "-";
    switch (conversion.letter) {
        case 'd':
        case 'i':
            defined = "-0+ ";
            break;
        case 'u':
            defined = "-0";
            break;
        case 'x':
        case 'X':
            defined = "-0#";
            break;
        default:
            break;
    }
    std::string flags = conversion.flags;
    std::erase_if(flags,
                  [defined](char flag) { return defined.find(flag) == std::string_view::npos; });
    return flags;
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
std::string Print(const std::string& format, std::uint32_t word) {
    std::array<char, 10'000> buffer;
    const int length = std::snprintf(buffer.data(), buffer.size(), format.c_str(), word);
    return {buffer.data(), static_cast<std::size_t>(length)};
}
#pragma GCC diagnostic pop

std::string Padded(const Conversion& conversion, std::string text) {
    const std::size_t width = conversion.width.empty() ? 0 : std::stoul(conversion.width);
    const std::size_t fill = width > text.size() ? width - text.size() : 0;
    const bool isLeft = conversion.flags.find('-') != std::string::npos;
    return text.insert(isLeft ? text.size() : 0, fill, ' ');
}

std::string PrintText(const Conversion& conversion, std::string_view text) {
    std::string_view kept = text;
    if (conversion.letter == 's' && !conversion.precision.empty()) {
        const std::string digits = conversion.precision.substr(1);
        kept = kept.substr(0, digits.empty() ? 0 : std::stoul(digits));
    }
    return Padded(conversion, std::string(kept));
}

std::string PrintNumber(const Conversion& conversion, std::uint32_t word, bool isSigned) {
    if (conversion.letter == 's') {
        return Padded(conversion, isSigned ? std::to_string(static_cast<std::int32_t>(word))
                                           : std::to_string(word));
    }
    std::string format = '%' + DefinedFlags(conversion) + conversion.width;
    if (conversion.letter != 'c') {
        format += conversion.precision + conversion.length;
    }
    return Print(format + conversion.letter, word);
}

std::string PrintArgument(const Conversion& conversion, const FormatArgument& argument) {
    if (const auto* text = std::get_if<std::string_view>(&argument)) {
        return PrintText(conversion, *text);
    }
    if (const auto* number = std::get_if<std::int32_t>(&argument)) {
        return PrintNumber(conversion, static_cast<std::uint32_t>(*number), true);
    }
    return PrintNumber(conversion, std::get<std::uint32_t>(argument), false);
}

}  // namespace

std::string FormatByReference(std::string_view format, std::span<const FormatArgument> arguments) {
    std::string text;
    for (std::size_t position = 0; position < format.size();) {
        const auto conversion =
            format[position] == '%' ? TakeConversion(format, position) : std::nullopt;
        if (!conversion) {
            text += format[position];
            position += format.substr(position).starts_with("%%") ? 2 : 1;
            continue;
        }
        position += conversion->size;
        if (!arguments.empty()) {
            text += PrintArgument(*conversion, arguments.front());
            arguments = arguments.subspan(1);
        }
    }
    return text;
}

}  // namespace orvell::fuzz
