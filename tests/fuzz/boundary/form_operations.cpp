#include <array>
#include <cstring>

#include "fuzz/boundary/host_memory.h"
#include "fuzz/boundary/session.h"
#include "fuzz/boundary/vocabulary.h"
#include "fuzz/require.h"

namespace orvell::fuzz {
namespace {

using Texts = std::optional<std::string>;

/// Bytes that the values of the form must have room for; 0 for none.
std::uint32_t LeastLength(std::uint32_t form) {
    constexpr std::array<std::uint32_t, 11> kLeastLengths = {0, 1, 2, 4, 4, 1, 4, 1, 8, 8, 8};
    return form < kLeastLengths.size() ? kLeastLengths[form] : 0;
}

std::uint32_t ChooseForm(Program& program) {
    constexpr std::array<std::uint32_t, 14> kForms = {1, 2, 3,  4, 5,          6,          7,
                                                      8, 9, 10, 0, 0xFFFFFFFF, 0x80000001, 11};
    return program.Pick(kForms);
}

template <typename Number>
Number ReadAs(const std::string& bytes) {
    Number number;
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
}

bool SetInForm(std::uint32_t form, const std::string& bytes, ModelType type, ModelValue& value) {
    switch (form) {
        case 1:
        case 7:
            return SetWord(type, value, ReadAs<std::uint8_t>(bytes));
        case 2:
            return SetWord(type, value, ReadAs<std::uint16_t>(bytes));
        case 3:
            return SetNumber(type, value, ReadAs<std::int32_t>(bytes));
        case 4:
            return SetNumber(type, value, ReadAs<float>(bytes));
        case 5:
            return SetText(type, value, bytes.substr(0, bytes.find('\0')));
        case 6:
            return SetDword(type, value, ReadAs<std::uint32_t>(bytes));
        case 8:
            return SetQword(type, value, ReadAs<std::uint64_t>(bytes));
        default:
            return SetNumber(type, value, ReadAs<double>(bytes));
    }
}

/// A buffer's bytes that suit the form, or any.
std::string ChooseBytes(Program& program, std::uint32_t form) {
    switch (program.Choose(4)) {
        case 0:
            return form == 4 ? BytesOf(static_cast<float>(ChooseNumber(program)))
                             : BytesOf(ChooseNumber(program));
        case 1:
            return BytesOf(ChooseInteger(program));
        case 2:
            return OrEmpty(ChooseText(program));
        default:
            return program.Text();
    }
}

void SetValueInForm(Session& session, Program& program) {
    const Texts address = ChooseAddress(program);
    const std::uint32_t form = ChooseForm(program);
    const std::string bytes = ChooseBytes(program, form);
    const bool isGiven = program.Choose(8) != 7;
    const auto length = static_cast<std::uint32_t>(bytes.size());
    HostMemory buffer(bytes);
    const auto call = program.Decide() ? session.management.SetValue : STDSIL_SetValue;
    const std::int32_t result =
        call(HostText(address).Pointer(), isGiven ? buffer.Data() : nullptr, length, form);
    const std::uint32_t least = LeastLength(form);
    const bool isSet = isGiven && least != 0 && length >= least &&
                       session.list.Write(OrEmpty(address), [&](ModelType type, ModelValue& value) {
                           return SetInForm(form, bytes, type, value);
                       });
    Require(result == (isSet ? 1 : 0), "values are set in the forms that suit their kind");
    RequireSame(buffer.Bytes(), bytes, "a value that is set is left alone");
}

template <typename Number, typename Value>
std::optional<std::string> BytesAs(const std::optional<Value>& value) {
    return value ? std::optional(BytesOf(static_cast<Number>(*value))) : std::nullopt;
}

/// What a buffer gets; none when the value does not suit the form.
std::optional<std::string> GetInForm(std::uint32_t form, std::uint32_t length, ModelType type,
                                     const ModelValue& value) {
    switch (form) {
        case 1:
            return WordOf(type, value)
                       ? BytesAs<std::uint8_t>(std::optional(*WordOf(type, value) != 0 ? 255 : 0))
                       : std::nullopt;
        case 2:
            return BytesAs<std::uint16_t>(WordOf(type, value));
        case 3:
            return NumberOf(type, value)
                       ? BytesAs<std::uint32_t>(std::optional(IntegerPart(*NumberOf(type, value))))
                       : std::nullopt;
        case 4:
            return BytesAs<float>(NumberOf(type, value));
        case 5:
            return TextOf(type, value)
                       ? std::optional(TextOf(type, value)->substr(0, length - 1) + '\0')
                       : std::nullopt;
        case 6:
            return BytesAs<std::uint32_t>(DwordOf(type, value));
        case 7:
            return BytesAs<std::uint8_t>(WordOf(type, value));
        case 8:
            return BytesAs<std::uint64_t>(QwordOf(type, value));
        default:
            return BytesAs<double>(NumberOf(type, value));
    }
}

/// What the value's entry gives; none without one.
std::optional<std::string> Expected(Session& session, const ModelAddress& address,
                                    std::uint32_t form, std::uint32_t length) {
    const ModelEntry* const entry = session.list.EntryToRead(*address.kind, address.number);
    return entry != nullptr ? GetInForm(form, length, address.kind->type, entry->value)
                            : std::nullopt;
}

void GetValueInForm(Session& session, Program& program) {
    const Texts addressText = ChooseAddress(program);
    const std::uint32_t form = ChooseForm(program);
    const std::uint32_t length = ChooseLength(program);
    const bool isGiven = program.Choose(8) != 7;
    HostMemory buffer(length);
    std::string expected = buffer.Bytes();
    const auto call = program.Decide() ? session.management.GetValue : STDSIL_GetValue;
    const std::int32_t result =
        call(HostText(addressText).Pointer(), isGiven ? buffer.Data() : nullptr, length, form);
    const std::uint32_t least = LeastLength(form);
    const ModelAddress address = session.list.Parse(OrEmpty(addressText));
    bool isRead = false;
    if (isGiven && least != 0 && length >= least && address.kind != nullptr) {
        const auto bytes = Expected(session, address, form, length);
        isRead = bytes.has_value();
        const std::string written = bytes.value_or(std::string(least, '\0'));
        expected.replace(0, written.size(), written);
    }
    Require(result == (isRead ? 1 : 0), "values are given in the forms that suit their kind");
    RequireSame(buffer.Bytes(), expected, "a value is given as its form says");
}

constexpr std::array kFormOperations = {Operation{'s', SetValueInForm},
                                        Operation{'g', GetValueInForm}};

}  // namespace

std::span<const Operation> FormOperations() {
    return kFormOperations;
}

}  // namespace orvell::fuzz
