#include "host/parameter_record.h"

#include "host/module.h"

namespace orvell::host {

using values::DisplayFormat;

const memstruct::TypeDef* TypeOf(std::int32_t identifier) {
    return TheModule().store.TypeOfArea(static_cast<std::uint32_t>(identifier));
}

values::ValueBuffer ValueBytes(const ParameterRecord& record) {
    if (record.bytes == nullptr) {
        return {};
    }
    return {static_cast<std::uint8_t*>(record.bytes), record.length};
}

DisplayFormat FormatOf(std::uint8_t formatByte) {
    constexpr std::uint8_t kFormatBits = 0x0F;
    const std::uint32_t format = formatByte & kFormatBits;
    return format <= static_cast<std::uint32_t>(DisplayFormat::Hexadecimal)
               ? static_cast<DisplayFormat>(format)
               : DisplayFormat::Default;
}

}  // namespace orvell::host
