#include "values/floating_converter.h"

#include <algorithm>
#include <limits>
#include <type_traits>

#include "values/double_text.h"
#include "values/stored_value.h"

namespace orvell::values {
namespace {

// Narrowing a double beyond the range of float gives infinity.
static_assert(std::numeric_limits<float>::is_iec559 && std::numeric_limits<double>::is_iec559);

template <typename Number>
constexpr bool kIsFloat = std::is_same_v<Number, float>;

template <typename Number>
void AppendNumber(std::string& text, Number value) {
    // Few enough digits that 0.1 shows as it was typed.
    AppendGeneral(text, value, kIsFloat<Number> ? 7 : 15);
}

}  // namespace

template <typename Number>
std::uint32_t FloatingConverter<Number>::GetSize(const TypeDescription& /*type*/) const {
    return sizeof(Number);
}

template <typename Number>
bool FloatingConverter<Number>::ValueToText(const TypeDescription& type, ConstValueBuffer buffer,
                                            std::string& text, DisplayFormat /*format*/,
                                            bool /*raw*/) const {
    text.clear();
    if (!HasRoom(type, buffer)) {
        return false;
    }
    AppendNumber(text, LoadNumber<Number>(buffer));
    return true;
}

template <typename Number>
bool FloatingConverter<Number>::DefaultText(const TypeDescription& /*type*/, std::string& text,
                                            DisplayFormat /*format*/) const {
    text = "0";
    return true;
}

template <typename Number>
bool FloatingConverter<Number>::TextToValue(const TypeDescription& type, ValueBuffer buffer,
                                            std::string_view text, DisplayFormat /*format*/) const {
    if (!HasRoom(type, buffer)) {
        return false;
    }
    StoreNumber(buffer, static_cast<Number>(ReadDouble(text)));
    return true;
}

template <typename Number>
bool FloatingConverter<Number>::ExportText(const TypeDescription& type, ConstValueBuffer buffer,
                                           std::string& text) const {
    const bool isShown = ValueToText(type, buffer, text, DisplayFormat::Default, /*raw=*/true);
    std::replace(text.begin(), text.end(), '.', ',');
    return isShown;
}

template <typename Number>
bool FloatingConverter<Number>::ImportText(const TypeDescription& type, std::string_view text,
                                           ValueBuffer buffer) const {
    std::string withPoint(text);
    std::replace(withPoint.begin(), withPoint.end(), ',', '.');
    return TextToValue(type, buffer, withPoint, DisplayFormat::Default);
}

template <typename Number>
std::uint32_t FloatingConverter<Number>::NormalizeParam(const TypeDescription& /*type*/) const {
    return 0;
}

template <typename Number>
bool FloatingConverter<Number>::Normalize(std::uint32_t /*param*/, std::string& text,
                                          DisplayFormat /*format*/) const {
    const auto value = static_cast<Number>(ReadDouble(text));
    text.clear();
    AppendNumber(text, value);
    return true;
}

template <typename Number>
HostForm FloatingConverter<Number>::GetHostForm(const TypeDescription& /*type*/) const {
    return kIsFloat<Number> ? HostForm{HostEntry::Float, ParameterKind::Float}
                            : HostForm{HostEntry::Double, ParameterKind::Double};
}

template class FloatingConverter<float>;
template class FloatingConverter<double>;

}  // namespace orvell::values
