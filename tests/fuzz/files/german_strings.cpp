#include "fuzz/files/german_strings.h"

#include "resources/built_in_strings.h"

namespace orvell::fuzz {
namespace {

class MonthFirstStrings : public platform::StringSource {
  public:
    [[nodiscard]] std::string Load(std::uint32_t number) const override {
        const bool isOrder =
            number == static_cast<std::uint32_t>(resources::StringId::CsvDateFormat);
        return isOrder ? "MM/DD/YYYY" : german_.Load(number);
    }

  private:
    const resources::BuiltInStrings german_;
};

}  // namespace

const resources::StringTable& GermanStrings(DateOrder order) {
    static const resources::BuiltInStrings kGerman;
    static const MonthFirstStrings kMonthFirst;
    static const resources::StringTable kDayFirstTable(kGerman);
    static const resources::StringTable kMonthFirstTable(kMonthFirst);
    return order == DateOrder::DayFirst ? kDayFirstTable : kMonthFirstTable;
}

}  // namespace orvell::fuzz
