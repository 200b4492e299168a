#include "values/integer_converter.h"

#include "values/number_text.h"
#include "values/stored_value.h"

namespace orvell::values {
namespace {

std::uint64_t ReadInteger(std::string_view text, DisplayFormat format) {
    return format == DisplayFormat::Hexadecimal ? ReadHexadecimal(text) : ReadDecimal64(text);
}

}  // namespace

std::uint32_t IntegerConverter::GetSize(const TypeDescription& type) const {
    switch (type.size) {
        case 1:
            return 1;
        case 0:
        case 2:
            return 2;
        case 3:
        case 4:
            return 4;
        default:
            return 8;
    }
}

bool IntegerConverter::ValueToText(const TypeDescription& type, ConstValueBuffer buffer,
                                   std::string& text, DisplayFormat format, bool /*raw*/) const {
    text.clear();
    if (!HasRoom(type, buffer)) {
        return false;
    }
    const std::uint32_t width = GetSize(type);
    AppendInteger(text, LoadInteger(buffer, width), width, format);
    return true;
}

bool IntegerConverter::DefaultText(const TypeDescription& type, std::string& text,
                                   DisplayFormat format) const {
    text.clear();
    AppendInteger(text, 0, GetSize(type), format);
    return true;
}

bool IntegerConverter::TextToValue(const TypeDescription& type, ValueBuffer buffer,
                                   std::string_view text, DisplayFormat format) const {
    if (!HasRoom(type, buffer)) {
        return false;
    }
    StoreInteger(buffer, GetSize(type), ReadInteger(text, format));
    return true;
}

bool IntegerConverter::ImportText(const TypeDescription& type, std::string_view text,
                                  ValueBuffer buffer) const {
    if (!HasRoom(type, buffer)) {
        return false;
    }
    StoreInteger(buffer, GetSize(type), ReadDecimalOrDouble(text));
    return true;
}

std::uint32_t IntegerConverter::NormalizeParam(const TypeDescription& type) const {
    return GetSize(type);
}

bool IntegerConverter::Normalize(std::uint32_t param, std::string& text,
                                 DisplayFormat format) const {
    const std::uint64_t value = ReadInteger(text, format);
    text.clear();
    AppendInteger(text, CutToWidth(value, param), param, format);
    return true;
}

HostForm IntegerConverter::GetHostForm(const TypeDescription& type) const {
    return HostFormOfInteger(GetSize(type), ParameterKind::IntegerByte,
                             ShowsSign(DisplayFormat::Default));
}

void IntegerConverter::AppendInteger(std::string& text, std::uint64_t value, std::uint32_t width,
                                     DisplayFormat format) const {
    if (format == DisplayFormat::Hexadecimal) {
        AppendHexadecimal(text, value, width);
    } else if (ShowsSign(format)) {
        AppendSigned(text, SignExtend(value, width));
    } else {
        AppendUnsigned(text, value);
    }
}

}  // namespace orvell::values
