#pragma once

#include <array>
#include <string_view>

#include "paramlist/value_type.h"

namespace orvell::fuzz {

/// A kind of parameters, and one of its values as files carry it.
struct ParameterKindRow {
    std::string_view keyword;
    paramlist::ValueTypeCode type;
    std::string_view listText;  ///< the value in a list file
    std::string_view csvText;   ///< the same value in the two columns of a CSV file, day first
};

/// The table of kinds of docs/parameter-list.md in its order, which files keep.
inline constexpr std::array kParameterKinds = {
    ParameterKindRow{"E", paramlist::ValueTypeCode::Bit, "1", "1;"},
    ParameterKindRow{"A", paramlist::ValueTypeCode::Bit, "0", "0;"},
    ParameterKindRow{"B", paramlist::ValueTypeCode::Bit, "1", "1;"},
    ParameterKindRow{"UCHARPARA", paramlist::ValueTypeCode::Byte, "200", "200;"},
    ParameterKindRow{"PW", paramlist::ValueTypeCode::Word, "-5", "-5;"},
    ParameterKindRow{"PL", paramlist::ValueTypeCode::Long, "-70000", "-70000;"},
    ParameterKindRow{"INT64PARA", paramlist::ValueTypeCode::Integer64, "-5000000000",
                     "-5000000000;"},
    ParameterKindRow{"PF", paramlist::ValueTypeCode::Float, "0.1", "0,1;"},
    ParameterKindRow{"DOUBLEPARA", paramlist::ValueTypeCode::Float, "1e+20", "1e+20;"},
    ParameterKindRow{"PT", paramlist::ValueTypeCode::Text, "1,5", "\"1,5\";"},
    ParameterKindRow{"TIMEPARA", paramlist::ValueTypeCode::Time, "-1", "4294967295;"},
    ParameterKindRow{"DATEPARA", paramlist::ValueTypeCode::Date, "1608768000", "24.12.2020;"},
    ParameterKindRow{"TODPARA", paramlist::ValueTypeCode::TimeOfDay, "23400", "06:30:00;"},
    ParameterKindRow{"DTPARA", paramlist::ValueTypeCode::DateAndTime, "1608791400",
                     "24.12.2020;06:30:00"},
    ParameterKindRow{"OLEDTPARA", paramlist::ValueTypeCode::OleDateTime, "44189.25",
                     "\"24.12.2020\";\"06:00:00;000\""},
};

/// Null for an unknown keyword.
[[nodiscard]] constexpr const ParameterKindRow* FindParameterKind(std::string_view keyword) {
    for (const ParameterKindRow& row : kParameterKinds) {
        if (row.keyword == keyword) {
            return &row;
        }
    }
    return nullptr;
}

}  // namespace orvell::fuzz
