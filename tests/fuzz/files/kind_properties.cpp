#include "fuzz/files/kind_properties.h"

#include <string>

#include "fuzz/files/german_strings.h"
#include "fuzz/parameter_kinds.h"
#include "fuzz/require.h"
#include "paramlist/text_kinds.h"
#include "paramlist/value_type_handler.h"

namespace orvell::fuzz {
namespace {

using paramlist::ParameterKind;

/// The text of a sample in a CSV file; all dates are the same.
std::string CsvText(const ParameterKindRow& row, DateOrder order) {
    constexpr std::string_view kDayFirst = "24.12.2020";
    constexpr std::string_view kMonthFirst = "12/24/2020";
    std::string text(row.csvText);
    if (const std::size_t start = text.find(kDayFirst);
        order == DateOrder::MonthFirst && start != std::string::npos) {
        text.replace(start, kDayFirst.size(), kMonthFirst);
    }
    return text;
}

void RequireSample(const ParameterKind& kind, const ParameterKindRow& row, DateOrder order) {
    const auto texts = paramlist::LoadValueTexts(GermanStrings(order));
    paramlist::ParameterValue value;
    Require(kind.Handler()->SetFromListText(value, row.listText, texts),
            "a kind takes the value of its sample");
    std::string listText;
    kind.Handler()->FormatListText(value, texts, listText);
    Require(listText == row.listText, "list files carry the kind's values as its sample");
    std::string csvText;
    kind.Handler()->FormatCsvField(value, texts, csvText);
    Require(csvText == CsvText(row, order), "CSV files carry the kind's values as its sample");
}

}  // namespace

void RequireTableOfKinds(paramlist::ParameterList& list) {
    Require(list.KindCount() == kParameterKinds.size(), "there are no other kinds");
    std::uint32_t index = 0;
    for (const ParameterKindRow& row : kParameterKinds) {
        const ParameterKind* const kind = list.FindKind(row.keyword);
        Require(kind != nullptr && kind == paramlist::KindAt(list, GermanStrings(), index),
                "kinds are ordered as their table is");
        Require(kind->ValueType() == row.type, "kinds have the value types of their table");
        RequireSample(*kind, row, DateOrder::DayFirst);
        RequireSample(*kind, row, DateOrder::MonthFirst);
        ++index;
    }
}

}  // namespace orvell::fuzz
