#include "values/enumerated_converter.h"

#include <algorithm>

#include "values/number_text.h"
#include "values/stored_value.h"

namespace orvell::values {

std::uint32_t EnumeratedConverter::GetSize(const TypeDescription& type) const {
    switch (type.size) {
        case 1:
            return 1;
        case 0:
        case 2:
            return 2;
        default:
            return 4;
    }
}

bool EnumeratedConverter::ValueToText(const TypeDescription& type, ConstValueBuffer buffer,
                                      std::string& text, DisplayFormat /*format*/,
                                      bool /*raw*/) const {
    text.clear();
    if (!HasRoom(type, buffer)) {
        return false;
    }
    const auto value = static_cast<std::uint32_t>(LoadInteger(buffer, GetSize(type)));
    const EnumItem* item = type.enumItems != nullptr ? type.enumItems->FindValue(value) : nullptr;
    if (item != nullptr && !item->name.empty()) {
        text = item->name;
    } else {
        AppendUnsigned(text, value);
    }
    return true;
}

bool EnumeratedConverter::DefaultText(const TypeDescription& type, std::string& text,
                                      DisplayFormat /*format*/) const {
    text = "0";
    if (type.enumItems != nullptr) {
        const auto items = type.enumItems->Items();
        const auto named = std::find_if(items.begin(), items.end(),
                                        [](const EnumItem& item) { return !item.name.empty(); });
        if (named != items.end()) {
            text = named->name;
        }
    }
    return true;
}

bool EnumeratedConverter::TextToValue(const TypeDescription& type, ValueBuffer buffer,
                                      std::string_view text, DisplayFormat /*format*/) const {
    if (!HasRoom(type, buffer)) {
        return false;
    }
    const EnumItem* item = type.enumItems != nullptr ? type.enumItems->FindName(text) : nullptr;
    StoreInteger(buffer, GetSize(type), item != nullptr ? item->value : ReadDecimal32(text));
    return true;
}

std::uint32_t EnumeratedConverter::NormalizeParam(const TypeDescription& type) const {
    return GetSize(type);
}

bool EnumeratedConverter::Normalize(std::uint32_t /*param*/, std::string& /*text*/,
                                    DisplayFormat /*format*/) const {
    return false;
}

HostForm EnumeratedConverter::GetHostForm(const TypeDescription& type) const {
    return HostFormOfInteger(GetSize(type), ParameterKind::EnumeratedByte, false);
}

}  // namespace orvell::values
