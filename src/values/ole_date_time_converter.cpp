#include "values/ole_date_time_converter.h"

#include <algorithm>

#include "values/ole_date_time_text.h"
#include "values/stored_value.h"

namespace orvell::values {
namespace {

constexpr double kSerialWithoutValue = 2.0;  // 1 January 1900

}  // namespace

std::uint32_t OleDateTimeConverter::GetSize(const TypeDescription& /*type*/) const {
    return sizeof(double);
}

bool OleDateTimeConverter::ValueToText(const TypeDescription& type, ConstValueBuffer buffer,
                                       std::string& text, DisplayFormat /*format*/,
                                       bool /*raw*/) const {
    const bool isUsable = HasRoom(type, buffer);
    text.clear();
    AppendOleDateTime(text, isUsable ? LoadNumber<double>(buffer) : kSerialWithoutValue,
                      type.dateFormat);
    return isUsable;
}

bool OleDateTimeConverter::DefaultText(const TypeDescription& type, std::string& text,
                                       DisplayFormat /*format*/) const {
    const platform::CivilTime now = clock_.Now();
    const CalendarDate date = {now.year, now.month, now.day};
    const ClockTime time = {now.hour, now.minute, now.second, 0};
    text.clear();
    AppendOleDateTime(text, SerialOf(date, time), type.dateFormat);
    return true;
}

bool OleDateTimeConverter::TextToValue(const TypeDescription& type, ValueBuffer buffer,
                                       std::string_view text, DisplayFormat /*format*/) const {
    if (!HasRoom(type, buffer)) {
        return false;
    }
    StoreNumber(buffer, ReadOleDateTime(text, type.dateFormat));
    return true;
}

bool OleDateTimeConverter::ExportText(const TypeDescription& type, ConstValueBuffer buffer,
                                      std::string& text) const {
    const bool isShown = ValueToText(type, buffer, text, DisplayFormat::Default, /*raw=*/true);
    std::replace(text.begin(), text.end(), ',', ';');
    return isShown;
}

std::uint32_t OleDateTimeConverter::NormalizeParam(const TypeDescription& type) const {
    return static_cast<std::uint32_t>(DateFormatOf(type));
}

bool OleDateTimeConverter::Normalize(std::uint32_t param, std::string& text,
                                     DisplayFormat /*format*/) const {
    const auto dateFormat = static_cast<DateFormatCode>(param);
    const double serial = ReadOleDateTime(text, dateFormat);
    text.clear();
    AppendOleDateTime(text, serial, dateFormat);
    return true;
}

HostForm OleDateTimeConverter::GetHostForm(const TypeDescription& /*type*/) const {
    return {HostEntry::Double, ParameterKind::OleDate};
}

}  // namespace orvell::values
