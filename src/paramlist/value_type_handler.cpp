#include "paramlist/value_type_handler.h"

#include <algorithm>

namespace orvell::paramlist {

bool ValueTypeHandler::IsBitAddressed() const {
    return false;
}

bool ValueTypeHandler::SetFromWord(ParameterValue& /*value*/, std::uint16_t /*word*/) const {
    return false;
}

bool ValueTypeHandler::SetFromDword(ParameterValue& /*value*/, std::uint32_t /*dword*/) const {
    return false;
}

bool ValueTypeHandler::SetFromQword(ParameterValue& /*value*/, std::uint64_t /*qword*/) const {
    return false;
}

bool ValueTypeHandler::SetFromDouble(ParameterValue& /*value*/, double /*number*/) const {
    return false;
}

bool ValueTypeHandler::GetWord(const ParameterValue& /*value*/, std::uint16_t& word) const {
    word = 0;
    return false;
}

bool ValueTypeHandler::GetDword(const ParameterValue& /*value*/, std::uint32_t& dword) const {
    dword = 0;
    return false;
}

bool ValueTypeHandler::GetQword(const ParameterValue& /*value*/, std::uint64_t& qword) const {
    qword = 0;
    return false;
}

bool ValueTypeHandler::GetDouble(const ParameterValue& /*value*/, double& number) const {
    number = 0.0;
    return false;
}

bool ValueTypeHandler::GetTextInto(const ParameterValue& value, std::span<char> buffer) const {
    std::string text;
    const bool isGiven = GetText(value, text);
    if (!buffer.empty()) {
        const std::size_t length = std::min(text.size(), buffer.size() - 1);
        std::copy_n(text.begin(), length, buffer.begin());
        buffer[length] = '\0';
    }
    return isGiven;
}

}  // namespace orvell::paramlist
