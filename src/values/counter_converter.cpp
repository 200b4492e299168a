#include "values/counter_converter.h"

#include "values/stored_value.h"

namespace orvell::values {

std::uint32_t CounterConverter::GetSize(const TypeDescription& /*type*/) const {
    return sizeof(std::uint32_t);
}

bool CounterConverter::ValueToText(const TypeDescription& type, ConstValueBuffer buffer,
                                   std::string& text, DisplayFormat /*format*/,
                                   bool /*raw*/) const {
    text.clear();
    if (!HasRoom(type, buffer)) {
        return false;
    }
    AppendCount(text, LoadNumber<std::uint32_t>(buffer), GetDateFormat(type));
    return true;
}

bool CounterConverter::DefaultText(const TypeDescription& type, std::string& text,
                                   DisplayFormat /*format*/) const {
    text.clear();
    AppendCount(text, 0, GetDateFormat(type));
    return true;
}

bool CounterConverter::TextToValue(const TypeDescription& type, ValueBuffer buffer,
                                   std::string_view text, DisplayFormat /*format*/) const {
    if (!HasRoom(type, buffer)) {
        return false;
    }
    const std::optional<std::uint32_t> count = ReadCount(text, GetDateFormat(type));
    StoreNumber(buffer, count.value_or(0));
    return count.has_value();
}

std::uint32_t CounterConverter::NormalizeParam(const TypeDescription& type) const {
    return static_cast<std::uint32_t>(GetDateFormat(type));
}

bool CounterConverter::Normalize(std::uint32_t param, std::string& text,
                                 DisplayFormat /*format*/) const {
    const auto dateFormat = static_cast<DateFormatCode>(param);
    const std::uint32_t count = ReadCount(text, dateFormat).value_or(0);
    text.clear();
    AppendCount(text, count, dateFormat);
    return true;
}

HostForm CounterConverter::GetHostForm(const TypeDescription& /*type*/) const {
    return {HostEntry::Long, ParameterKind::Time};
}

DateFormatCode CounterConverter::GetDateFormat(const TypeDescription& /*type*/) const {
    return DateFormatCode::None;
}

}  // namespace orvell::values
