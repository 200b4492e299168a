#include "paramlist/value_type.h"

#include <array>

namespace orvell::paramlist {

ValueTypeCode ValueTypeOfKind(std::size_t index) {
    constexpr std::array<ValueTypeCode, kParameterKindCount> kValueTypes = {
        ValueTypeCode::Bit,          // E
        ValueTypeCode::Bit,          // A
        ValueTypeCode::Bit,          // B
        ValueTypeCode::Byte,         // UCHARPARA
        ValueTypeCode::Word,         // PW
        ValueTypeCode::Long,         // PL
        ValueTypeCode::Integer64,    // INT64PARA
        ValueTypeCode::Float,        // PF
        ValueTypeCode::Float,        // DOUBLEPARA
        ValueTypeCode::Text,         // PT
        ValueTypeCode::Time,         // TIMEPARA
        ValueTypeCode::Date,         // DATEPARA
        ValueTypeCode::TimeOfDay,    // TODPARA
        ValueTypeCode::DateAndTime,  // DTPARA
        ValueTypeCode::OleDateTime,  // OLEDTPARA
    };
    return index < kValueTypes.size() ? kValueTypes[index] : ValueTypeCode::None;
}

}  // namespace orvell::paramlist
