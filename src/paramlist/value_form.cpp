#include "paramlist/value_form.h"

#include <array>
#include <cstring>
#include <string_view>

#include "paramlist/integer_reading.h"

namespace orvell::paramlist {
namespace {

using Buffer = std::span<std::uint8_t>;
using ConstBuffer = std::span<const std::uint8_t>;

template <typename Number>
Number Load(ConstBuffer buffer) {
    Number number;
    std::memcpy(&number, buffer.data(), sizeof number);
    return number;
}

template <typename Number>
void Store(Buffer buffer, Number number) {
    std::memcpy(buffer.data(), &number, sizeof number);
}

bool GetTruth(const ValueTypeHandler& handler, const ParameterValue& value, Buffer buffer) {
    constexpr std::uint8_t kTrue = 255;
    std::uint16_t word = 0;
    const bool isGiven = handler.GetWord(value, word);
    Store<std::uint8_t>(buffer, word != 0 ? kTrue : 0);
    return isGiven;
}

bool GetWord(const ValueTypeHandler& handler, const ParameterValue& value, Buffer buffer) {
    std::uint16_t word = 0;
    const bool isGiven = handler.GetWord(value, word);
    Store(buffer, word);
    return isGiven;
}

bool GetByte(const ValueTypeHandler& handler, const ParameterValue& value, Buffer buffer) {
    std::uint16_t word = 0;
    const bool isGiven = handler.GetWord(value, word);
    Store(buffer, static_cast<std::uint8_t>(word));
    return isGiven;
}

bool GetLong(const ValueTypeHandler& handler, const ParameterValue& value, Buffer buffer) {
    double number = 0.0;
    const bool isGiven = handler.GetDouble(value, number);
    Store(buffer, static_cast<std::uint32_t>(TruncateToInteger(number)));
    return isGiven;
}

bool GetFloat(const ValueTypeHandler& handler, const ParameterValue& value, Buffer buffer) {
    double number = 0.0;
    const bool isGiven = handler.GetDouble(value, number);
    Store(buffer, static_cast<float>(number));
    return isGiven;
}

bool GetDouble(const ValueTypeHandler& handler, const ParameterValue& value, Buffer buffer) {
    double number = 0.0;
    const bool isGiven = handler.GetDouble(value, number);
    Store(buffer, number);
    return isGiven;
}

bool GetText(const ValueTypeHandler& handler, const ParameterValue& value, Buffer buffer) {
    return handler.GetTextInto(value, {reinterpret_cast<char*>(buffer.data()), buffer.size()});
}

bool GetDword(const ValueTypeHandler& handler, const ParameterValue& value, Buffer buffer) {
    std::uint32_t dword = 0;
    const bool isGiven = handler.GetDword(value, dword);
    Store(buffer, dword);
    return isGiven;
}

bool GetQword(const ValueTypeHandler& handler, const ParameterValue& value, Buffer buffer) {
    std::uint64_t qword = 0;
    const bool isGiven = handler.GetQword(value, qword);
    Store(buffer, qword);
    return isGiven;
}

bool SetByte(const ValueTypeHandler& handler, ParameterValue& value, ConstBuffer buffer) {
    return handler.SetFromWord(value, Load<std::uint8_t>(buffer));
}

bool SetWord(const ValueTypeHandler& handler, ParameterValue& value, ConstBuffer buffer) {
    return handler.SetFromWord(value, Load<std::uint16_t>(buffer));
}

bool SetDword(const ValueTypeHandler& handler, ParameterValue& value, ConstBuffer buffer) {
    return handler.SetFromDword(value, Load<std::uint32_t>(buffer));
}

bool SetQword(const ValueTypeHandler& handler, ParameterValue& value, ConstBuffer buffer) {
    return handler.SetFromQword(value, Load<std::uint64_t>(buffer));
}

template <typename Number>
bool SetDouble(const ValueTypeHandler& handler, ParameterValue& value, ConstBuffer buffer) {
    return handler.SetFromDouble(value, Load<Number>(buffer));
}

bool SetText(const ValueTypeHandler& handler, ParameterValue& value, ConstBuffer buffer) {
    const std::string_view text(reinterpret_cast<const char*>(buffer.data()), buffer.size());
    return handler.SetFromText(value, text.substr(0, text.find('\0')));
}

struct FormRow {
    std::uint32_t minimumLength;
    bool (*get)(const ValueTypeHandler&, const ParameterValue&, Buffer);
    bool (*set)(const ValueTypeHandler&, ParameterValue&, ConstBuffer);
};

constexpr std::array<FormRow, 11> kForms = {{
    {0, nullptr, nullptr},
    {1, GetTruth, SetByte},
    {2, GetWord, SetWord},
    {4, GetLong, SetDouble<std::int32_t>},
    {4, GetFloat, SetDouble<float>},
    {1, GetText, SetText},
    {4, GetDword, SetDword},
    {1, GetByte, SetByte},
    {8, GetQword, SetQword},
    {8, GetDouble, SetDouble<double>},
    {8, GetDouble, SetDouble<double>},
}};

const FormRow& RowOf(ValueForm form) {
    const auto index = static_cast<std::uint32_t>(form);
    return kForms[index < kForms.size() ? index : 0];
}

}  // namespace

std::uint32_t MinimumLength(ValueForm form) {
    return RowOf(form).minimumLength;
}

bool GetInForm(ValueForm form, const ValueTypeHandler& handler, const ParameterValue& value,
               std::span<std::uint8_t> buffer) {
    return RowOf(form).get(handler, value, buffer);
}

bool SetFromForm(ValueForm form, const ValueTypeHandler& handler, ParameterValue& value,
                 std::span<const std::uint8_t> buffer) {
    return RowOf(form).set(handler, value, buffer);
}

}  // namespace orvell::paramlist
