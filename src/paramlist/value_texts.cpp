#include "paramlist/value_texts.h"

namespace orvell::paramlist {

ValueTexts LoadValueTexts(const resources::StringTable& strings) {
    using resources::StringId;
    const bool isMonthFirst =
        strings.Text(StringId::CsvDateFormat) == strings.Text(StringId::DateFormatMonthFirst);
    return {strings.Text(StringId::UndefinedValue),
            isMonthFirst ? values::DateFormatCode::MonthFirst : values::DateFormatCode::DayFirst};
}

}  // namespace orvell::paramlist
