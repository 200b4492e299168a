#include "fuzz/files/csv_file_line_start.h"

#include <optional>

#include "fuzz/files/german_strings.h"
#include "fuzz/parameter_kinds.h"

namespace orvell::fuzz {
namespace {

using resources::StringId;

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

std::string WithoutWhiteSpace(const std::string& text) {
    std::string kept;
    for (const char character : text) {
        if (character != ' ' && character != '\t') {
            kept += character;
        }
    }
    return kept;
}

bool IsStartOf(StringId id, const std::string& text) {
    return GermanStrings().Text(id).compare(0, text.size(), text) == 0;
}

bool IsHeadLine(const std::string& text) {
    for (std::uint32_t kind = 0; kind < kParameterKinds.size(); ++kind) {
        const auto first = static_cast<std::uint32_t>(StringId::CsvHeaderE);
        if (IsStartOf(static_cast<StringId>(first + kind), text)) {
            return true;
        }
    }
    return IsStartOf(StringId::CsvVersionLine, text) || IsStartOf(StringId::CsvProjectLine, text) ||
           IsStartOf(StringId::CsvColumnLine, text);
}

/// Digits behind the keyword; for bits perhaps a point and one octal digit. Modulo 2^32.
std::optional<std::uint32_t> NumberOf(const std::string& number, bool isBit) {
    std::uint64_t value = 0;
    std::size_t index = 0;
    for (; index < number.size() && IsDigit(number[index]); ++index) {
        value = (value * 10 + static_cast<std::uint64_t>(number[index] - '0')) % 0x1'0000'0000;
    }
    if (index == number.size()) {
        return static_cast<std::uint32_t>(value);
    }
    if (!isBit || index + 2 != number.size() || number[index + 1] > '7') {
        return std::nullopt;
    }
    value = value * 8 + static_cast<std::uint64_t>(number[index + 1] - '0');
    return static_cast<std::uint32_t>(value % 0x1'0000'0000);
}

}  // namespace

CsvLineStart ReadCsvLineStart(ReferenceList& list, const std::string& text) {
    const std::string address = WithoutWhiteSpace(text);
    std::size_t start = address.size();
    bool hasPoint = false;
    while (start > 0 && (IsDigit(address[start - 1]) || (!hasPoint && address[start - 1] == '.'))) {
        --start;
        hasPoint = hasPoint || address[start] == '.';
    }
    const std::string keyword = address.substr(0, start);
    const ParameterKindRow* const kind = FindParameterKind(keyword);
    if (kind == nullptr) {
        return IsHeadLine(text) ? CsvLineStart{} : CsvLineStart{nullptr, 2000, text};
    }
    const bool isBit = kind->type == paramlist::ValueTypeCode::Bit;
    const auto number = NumberOf(address.substr(start), isBit);
    if (!number) {
        return {nullptr, 2002, address};
    }
    PlainEntry* const entry = list.Find(keyword, *number);
    return entry != nullptr ? CsvLineStart{entry, 0, {}} : CsvLineStart{nullptr, 2001, address};
}

}  // namespace orvell::fuzz
