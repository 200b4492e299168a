#include "resources/checked_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <utility>

namespace orvell::resources {
namespace {

/// Ten characters hold 32 bits in any base from 10 on. Sixteen are one vector of the processor: of
/// fewer GCC 12 warns at -O3 that they could be overrun.
using DigitBuffer = std::array<char, 16>;

std::string_view ToDigits(DigitBuffer& buffer, std::uint32_t number, int base = 10) {
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, base).ptr;
    return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

std::string_view ToDigits(DigitBuffer& buffer, std::uint32_t number, char letter) {
    const bool isHexadecimal = letter == 'x' || letter == 'X';
    const std::string_view digits = ToDigits(buffer, number, isHexadecimal ? 16 : 10);
    if (letter == 'X') {
        std::transform(digits.begin(), digits.end(), buffer.begin(), [](char digit) {
            return digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
        });
    }
    return digits;
}

bool IsSigned(char letter) {
    return letter == 'd' || letter == 'i';
}

/// Takes the low `bits` of `word`, extended by the sign bit or by zeros to 32.
std::uint32_t Narrow(std::uint32_t word, unsigned bits, bool isSigned) {
    const unsigned unused = 32 - bits;
    word <<= unused;
    return isSigned ? static_cast<std::uint32_t>(static_cast<std::int32_t>(word) >> unused)
                    : word >> unused;
}

std::size_t FillOf(const FormatConversion& conversion, std::size_t size) {
    return conversion.width > size ? conversion.width - size : 0;
}

void AppendPadded(std::string& out, const FormatConversion& conversion, std::string_view text) {
    const std::size_t fill = FillOf(conversion, text.size());
    out.append(conversion.leftAligned ? 0 : fill, ' ');
    out.append(text);
    out.append(conversion.leftAligned ? fill : 0, ' ');
}

void AppendText(std::string& out, const FormatConversion& conversion, std::string_view text) {
    if (conversion.letter == 's' && conversion.precision >= 0) {
        text = text.substr(0, static_cast<std::size_t>(conversion.precision));
    }
    AppendPadded(out, conversion, text);
}

std::string_view PrefixOf(const FormatConversion& conversion, bool isNegative, bool isZero) {
    if (IsSigned(conversion.letter)) {
        return isNegative ? "-" : conversion.plusSign ? "+" : conversion.blankSign ? " " : "";
    }
    if (conversion.alternative && !isZero && conversion.letter != 'u') {
        return conversion.letter == 'x' ? "0x" : "0X";
    }
    return "";
}

void AppendInteger(std::string& out, const FormatConversion& conversion, std::uint32_t word) {
    const bool isSigned = IsSigned(conversion.letter);
    word = Narrow(word, conversion.bits, isSigned);
    const bool isNegative = isSigned && static_cast<std::int32_t>(word) < 0;
    const std::uint32_t magnitude = isNegative ? 0U - word : word;

    DigitBuffer buffer;
    const std::string_view digits = magnitude == 0 && conversion.precision == 0
                                        ? std::string_view()
                                        : ToDigits(buffer, magnitude, conversion.letter);
    const std::string_view prefix = PrefixOf(conversion, isNegative, magnitude == 0);
    const std::size_t size = prefix.size() + digits.size();
    std::size_t zeros = 0;
    if (conversion.precision >= 0) {
        const auto precision = static_cast<std::size_t>(conversion.precision);
        zeros = precision > digits.size() ? precision - digits.size() : 0;
    } else if (conversion.zeroPadded && !conversion.leftAligned) {
        zeros = FillOf(conversion, size);
    }
    const std::size_t fill = FillOf(conversion, size + zeros);

    out.append(conversion.leftAligned ? 0 : fill, ' ');
    out.append(prefix).append(zeros, '0').append(digits);
    out.append(conversion.leftAligned ? fill : 0, ' ');
}

/// A number where the format has a text: as digits in the number's own signedness.
void AppendNumberAsText(std::string& out, const FormatConversion& conversion, std::int64_t number) {
    std::array<char, 11> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
    AppendPadded(out, conversion, {buffer.data(), static_cast<std::size_t>(end - buffer.data())});
}

template <typename Number>
void AppendNumber(std::string& out, const FormatConversion& conversion, Number number) {
    switch (conversion.letter) {
        case 'c': {
            const char character = static_cast<char>(number);
            AppendPadded(out, conversion, {&character, 1});
            break;
        }
        case 's':
            AppendNumberAsText(out, conversion, number);
            break;
        default:
            AppendInteger(out, conversion, static_cast<std::uint32_t>(number));
            break;
    }
}

/// Room for the decimal digits of 32 bits and a sign.
constexpr std::size_t kLongestDecimal = 11;

/// True for the conversions that `WriteArgument` knows: those without flags but "-" and without a
/// precision, of texts and of numbers in their own signedness.
bool IsPlainFor(const FormatConversion& conversion, const FormatArgument& argument) {
    constexpr std::array<char, std::variant_size_v<FormatArgument>> kOwnLetters = {0, 'd', 'u'};
    const char ownLetter = kOwnLetters[argument.index()];
    return conversion.isPlain && (ownLetter == 0 || ownLetter == conversion.letter);
}

/// As std::copy, but without a call for up to 16 characters, as most texts here are.
inline char* Copy(std::string_view text, char* out) {
    const std::size_t size = text.size();
    const auto copyEnds = [text, size, out](auto part) {
        auto last = part;
        std::memcpy(&part, text.data(), sizeof part);
        std::memcpy(&last, text.data() + size - sizeof last, sizeof last);
        std::memcpy(out, &part, sizeof part);
        std::memcpy(out + size - sizeof last, &last, sizeof last);
    };
    if (size > 16) {
        std::memcpy(out, text.data(), size);
    } else if (size >= 8) {
        copyEnds(std::uint64_t{});
    } else if (size >= 4) {
        copyEnds(std::uint32_t{});
    } else if (size != 0) {
        out[0] = text[0];
        out[size / 2] = text[size / 2];
        out[size - 1] = text[size - 1];
    }
    return out + size;
}

char* WriteDecimal(char* out, const FormatArgument& argument) {
    char* const end = out + kLongestDecimal;
    if (const auto* number = std::get_if<std::uint32_t>(&argument)) {
        return std::to_chars(out, end, *number).ptr;
    }
    return std::to_chars(out, end, *std::get_if<std::int32_t>(&argument)).ptr;
}

/// Writes an argument for which the conversion is plain.
char* WriteArgument(char* out, const FormatConversion& conversion, const FormatArgument& argument) {
    char* const start = out;
    const auto* text = std::get_if<std::string_view>(&argument);
    out = text != nullptr ? Copy(*text, out) : WriteDecimal(out, argument);
    const std::size_t fill = FillOf(conversion, static_cast<std::size_t>(out - start));
    if (fill > 0) {
        if (!conversion.leftAligned) {
            std::move_backward(start, out, out + fill);
        }
        std::fill_n(conversion.leftAligned ? out : start, fill, ' ');
        out += fill;
    }
    return out;
}

void AppendArgument(std::string& out, const FormatConversion& conversion,
                    const FormatArgument& argument) {
    if (const auto* text = std::get_if<std::string_view>(&argument)) {
        AppendText(out, conversion, *text);
    } else if (const auto* number = std::get_if<std::int32_t>(&argument)) {
        AppendNumber(out, conversion, *number);
    } else {
        AppendNumber(out, conversion, *std::get_if<std::uint32_t>(&argument));
    }
}

}  // namespace

CheckedFormat::CheckedFormat(std::string_view format) {
    Piece piece;
    while (!format.empty()) {
        const std::size_t percent = std::min(format.find('%'), format.size());
        piece.literal.append(format.substr(0, percent));
        format.remove_prefix(percent);
        if (format.empty()) {
            break;
        }
        if (const std::size_t size = ParseConversion(format, piece.conversion); size > 0) {
            format.remove_prefix(size);
            pieces_.push_back(std::exchange(piece, {}));
            continue;
        }
        // "%%" stands for one "%"; of anything unknown the "%" is printed and the rest read on.
        piece.literal += '%';
        format.remove_prefix(format.starts_with("%%") ? 2 : 1);
    }
    piece.conversion = {};
    pieces_.push_back(std::move(piece));
    for (const Piece& each : pieces_) {
        numberRoom_ += each.literal.size() + each.conversion.width + kLongestDecimal;
    }
}

void CheckedFormat::AppendTo(std::string& out, std::span<const FormatArgument> arguments) const {
    if (!AppendPlain(out, arguments)) {
        AppendAny(out, arguments);
    }
}

/// The usual case in the records of an export. False when the general way is needed.
bool CheckedFormat::AppendPlain(std::string& out, std::span<const FormatArgument> arguments) const {
    const std::size_t conversionCount = pieces_.size() - 1;
    if (arguments.size() < conversionCount) {
        return false;
    }
    std::size_t room = numberRoom_;
    for (std::size_t index = 0; index < conversionCount; ++index) {
        if (!IsPlainFor(pieces_[index].conversion, arguments[index])) {
            return false;
        }
        const auto* text = std::get_if<std::string_view>(&arguments[index]);
        room += text != nullptr ? text->size() : 0;
    }
    const std::size_t before = out.size();
    out.resize(before + room);
    char* end = out.data() + before;
    for (std::size_t index = 0; index < conversionCount; ++index) {
        end = Copy(pieces_[index].literal, end);
        end = WriteArgument(end, pieces_[index].conversion, arguments[index]);
    }
    end = Copy(pieces_.back().literal, end);
    out.resize(static_cast<std::size_t>(end - out.data()));
    return true;
}

void CheckedFormat::AppendAny(std::string& out, std::span<const FormatArgument> arguments) const {
    auto argument = arguments.begin();
    for (const Piece& piece : pieces_) {
        out.append(piece.literal);
        if (piece.conversion.letter != 0 && argument != arguments.end()) {
            AppendArgument(out, piece.conversion, *argument++);
        }
    }
}

std::string FormatText(std::string_view format, std::initializer_list<FormatArgument> arguments) {
    std::string text;
    CheckedFormat(format).AppendTo(text, {arguments.begin(), arguments.size()});
    return text;
}

}  // namespace orvell::resources
