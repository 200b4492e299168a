#include "values/value_transfer.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "platform/host_call.h"
#include "values/stored_value.h"

namespace orvell::values {

using platform::CallHost;

namespace {

template <typename Number>
using Setter = std::int32_t(ORVELL_CALL*)(std::uint32_t, std::uint32_t, Number);

template <typename Number>
using Getter = std::int32_t(ORVELL_CALL*)(std::uint32_t, std::uint32_t, Number*);

template <typename Number>
bool PutNumber(Setter<Number> setter, std::uint32_t first, std::uint32_t second,
               ConstValueBuffer value) {
    if (setter == nullptr) {
        return false;
    }
    // Copied here, since a function's float result would turn a signalling NaN into a quiet one.
    Number number;
    std::memcpy(&number, value.data(), sizeof number);
    return CallHost(setter, first, second, number) != 0;
}

template <typename Number>
bool GetNumber(Getter<Number> getter, std::uint32_t first, std::uint32_t second,
               ValueBuffer value) {
    Number number = 0;
    if (getter == nullptr || CallHost(getter, first, second, &number) == 0) {
        return false;
    }
    std::memcpy(value.data(), &number, sizeof number);
    return true;
}

/// Every argument travels in a word of its own, and a host of another compiler may look at the
/// whole of it: its upper bits continue the number.
template <typename Number>
bool PutShortNumber(Setter<Number> setter, std::uint32_t first, std::uint32_t second,
                    ConstValueBuffer value, bool isSigned) {
    const std::uint64_t number = LoadInteger(value, sizeof(Number));
    const auto word = static_cast<std::uint32_t>(
        isSigned ? static_cast<std::uint64_t>(SignExtend(number, sizeof(Number))) : number);
    const auto wordSetter =
        reinterpret_cast<Setter<std::uint32_t>>(reinterpret_cast<void*>(setter));
    return wordSetter != nullptr && CallHost(wordSetter, first, second, word) != 0;
}

bool PutText(Setter<const char*> setter, std::uint32_t first, std::uint32_t second,
             ConstValueBuffer value) {
    if (setter == nullptr) {
        return false;
    }
    const auto last = value.end() - 1;
    const std::string text(value.begin(), std::find(value.begin(), last, 0));
    return CallHost(setter, first, second, text.c_str()) != 0;
}

bool GetText(decltype(OnlineGetters::GetText) getter, std::uint32_t first, std::uint32_t second,
             ValueBuffer value) {
    if (getter == nullptr) {
        return false;
    }
    std::string text(value.size(), '\0');
    if (CallHost(getter, first, second, text.data(), static_cast<std::uint32_t>(text.size())) ==
        0) {
        return false;
    }
    const auto textEnd = std::find(text.begin(), text.end() - 1, '\0');
    std::fill(std::copy(text.begin(), textEnd, value.begin()), value.end(), std::uint8_t{0});
    return true;
}

}  // namespace

HostForm HostFormOfInteger(std::uint32_t width, ParameterKind byteKind, bool isSigned) {
    switch (width) {
        case 1:
            return {HostEntry::Byte, byteKind, isSigned};
        case 2:
            return {HostEntry::Word, ParameterKind::Word, isSigned};
        case 4:
            return {HostEntry::Long, ParameterKind::Long, isSigned};
        default:
            return {HostEntry::Qword, ParameterKind::Qword, isSigned};
    }
}

bool PutValue(const HostForm& form, std::uint32_t first, std::uint32_t second,
              ConstValueBuffer value, const OnlineSetters& setters) {
    switch (form.entry) {
        case HostEntry::Byte:
            return PutShortNumber(setters.Put8, first, second, value, form.isSigned);
        case HostEntry::Word:
            return PutShortNumber(setters.Put16, first, second, value, form.isSigned);
        case HostEntry::Long:
            return PutNumber<std::uint32_t>(setters.Put32, first, second, value);
        case HostEntry::Qword:
            return PutNumber<std::uint64_t>(setters.Put64, first, second, value);
        case HostEntry::Float:
            return PutNumber<float>(setters.PutFloat, first, second, value);
        case HostEntry::Double:
            return PutNumber<double>(setters.PutDouble, first, second, value);
        case HostEntry::Text:
            return PutText(setters.PutText, first, second, value);
    }
    return false;
}

bool GetValue(HostEntry entry, std::uint32_t first, std::uint32_t second, ValueBuffer value,
              const OnlineGetters& getters) {
    switch (entry) {
        case HostEntry::Byte:
            return GetNumber<std::uint8_t>(getters.Get8, first, second, value);
        case HostEntry::Word:
            return GetNumber<std::uint16_t>(getters.Get16, first, second, value);
        case HostEntry::Long:
            return GetNumber<std::uint32_t>(getters.Get32, first, second, value);
        case HostEntry::Qword:
            return GetNumber<std::uint64_t>(getters.Get64, first, second, value);
        case HostEntry::Float:
            return GetNumber<float>(getters.GetFloat, first, second, value);
        case HostEntry::Double:
            return GetNumber<double>(getters.GetDouble, first, second, value);
        case HostEntry::Text:
            return GetText(getters.GetText, first, second, value);
    }
    return false;
}

}  // namespace orvell::values
