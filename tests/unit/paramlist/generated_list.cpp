#include "unit/paramlist/generated_list.h"

#include <random>
#include <string>

namespace orvell::test {
namespace {

using paramlist::ParameterEntry;
using paramlist::ParameterKind;
using paramlist::ParameterValue;
using paramlist::ValueTypeCode;

constexpr std::uint32_t kSecondsPerDay = 86'400;

class Generator {
  public:
    explicit Generator(std::uint32_t seed) : random_(seed) {}

    void Fill(ParameterKind& kind, std::uint32_t entryCount) {
        std::uint32_t number = 0;
        for (std::uint32_t index = 0; index < entryCount; ++index) {
            number += Below(10) == 0 ? 1 + Below(5) : 1;
            ParameterEntry& entry = kind.Obtain(number, false);
            entry.SetName(Text(ParameterEntry::kMaximumNameLength));
            entry.SetComment(Below(12) == 0 ? "" : Text(ParameterEntry::kMaximumCommentLength));
            if (Below(30) != 0) {
                SetValue(entry.Value(), kind.ValueType());
            }
        }
    }

  private:
    std::uint32_t Below(std::uint32_t limit) { return random_() % limit; }

    /// Half of the numbers are small, as in real projects.
    template <typename Number>
    Number Integer() {
        const std::uint64_t bits = std::uint64_t{random_()} << 32 | random_();
        return static_cast<Number>(Below(2) == 0 ? bits % 1000 : bits);
    }

    /// Begins and ends with a letter.
    std::string Text(std::size_t maximumLength) {
        constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDE\xE4\xF6\xFC\xDF\xFF";
        constexpr std::string_view kOthers = "    _0123456789\";,.%:-";
        const std::size_t length = 2 + Below(static_cast<std::uint32_t>(maximumLength) - 1);
        std::string text;
        while (text.size() < length) {
            const bool isLetter = text.empty() || text.size() + 1 == length || Below(4) != 0;
            const std::string_view characters = isLetter ? kLetters : kOthers;
            text += characters[Below(static_cast<std::uint32_t>(characters.size()))];
        }
        return text;
    }

    /// Has at most 15 digits.
    double Double() {
        constexpr double kScales[] = {1, 10, 1000, 1e6};
        const auto digits = static_cast<std::int32_t>(random_());
        return Below(20) == 0 ? digits * 1e20 : digits / kScales[Below(4)];
    }

    /// A multiple of 1/1024 day, which is exact in milliseconds and in decimals.
    double OleDateTime() { return 1 + Below(60'000 * 1024) / 1024.0; }

    void SetValue(ParameterValue& value, ValueTypeCode type) {
        switch (type) {
            case ValueTypeCode::Bit:
                return value.Store(static_cast<std::uint8_t>(Below(2)));
            case ValueTypeCode::Byte:
                return value.Store(Integer<std::uint8_t>());
            case ValueTypeCode::Word:
                return value.Store(Integer<std::int16_t>());
            case ValueTypeCode::Long:
                return value.Store(Integer<std::int32_t>());
            case ValueTypeCode::Time:
                return value.Store(Integer<std::uint32_t>());
            case ValueTypeCode::Integer64:
                return value.Store(Integer<std::int64_t>());
            case ValueTypeCode::Float:
                return value.Store(Double());
            case ValueTypeCode::Text:
                return value.StoreText(Text(30));
            case ValueTypeCode::Date:
                return value.Store(Below(49'000) * kSecondsPerDay);
            case ValueTypeCode::TimeOfDay:
                return value.Store(Below(kSecondsPerDay));
            case ValueTypeCode::DateAndTime:
                return value.Store(Integer<std::uint32_t>());
            case ValueTypeCode::OleDateTime:
                return value.Store(OleDateTime());
            case ValueTypeCode::None:
                return;
        }
    }

    std::mt19937 random_;
};

}  // namespace

void FillList(paramlist::ParameterList& list, std::uint32_t entryCount, std::uint32_t seed) {
    Generator generator(seed);
    for (ParameterKind& kind : list.Kinds()) {
        generator.Fill(kind, entryCount / static_cast<std::uint32_t>(list.KindCount()));
    }
}

}  // namespace orvell::test
