#include <array>
#include <cstring>

#include "host_memory.h"
#include "require.h"
#include "session.h"
#include "vocabulary.h"

namespace orvell::fuzz {
namespace {

using Texts = std::optional<std::string>;

/// Address, name and comment, as they come with a value.
struct Described {
    explicit Described(Program& program)
        : address(ChooseAddress(program)),
          name(ChooseText(program)),
          comment(ChooseText(program)) {}

    Texts address;
    Texts name;
    Texts comment;
};

/// Has `set(type, value)` set the value of the entry that may be written; it is created if need be.
template <typename Set>
bool Write(Session& session, const Texts& addressText, const Described* described, const Set& set) {
    const ModelAddress address = session.list.Parse(OrEmpty(addressText));
    ModelEntry* const entry = address.kind == nullptr
                                  ? nullptr
                                  : session.list.EntryToWrite(*address.kind, address.number);
    if (entry == nullptr) {
        return false;
    }
    if (described != nullptr) {
        entry->name = OrEmpty(described->name).substr(0, 15);
        entry->comment = OrEmpty(described->comment).substr(0, 30);
    }
    return set(address.kind->type, entry->value);
}

/// Calls an accessor that sets a described value, and compares its result.
template <typename Accessor, typename Given, typename Set>
void SetDescribed(Session& session, Program& program, Accessor accessor, const Given& given,
                  const Set& set) {
    const Described described(program);
    const std::int32_t result =
        accessor(HostText(described.address).Pointer(), HostText(described.name).Pointer(),
                 HostText(described.comment).Pointer(), given);
    const bool isSet = Write(session, described.address, &described, set);
    Require(result == (isSet ? 1 : 0), "values are set that suit their kind");
}

void SetBit(Session& session, Program& program) {
    const auto given = static_cast<std::int32_t>(ChooseInteger(program));
    SetDescribed(session, program, STDSIL_SetBitParaValue, given,
                 [&](ModelType type, ModelValue& value) {
                     return SetWord(type, value, given != 0 ? 1 : 0);
                 });
}

void SetWordValue(Session& session, Program& program) {
    const auto given = static_cast<std::int32_t>(ChooseInteger(program));
    SetDescribed(session, program, STDSIL_SetWordParaValue, given,
                 [&](ModelType type, ModelValue& value) {
                     return SetWord(type, value, static_cast<std::uint16_t>(given));
                 });
}

void SetFloat(Session& session, Program& program) {
    const double& given = ChooseNumber(program);
    SetDescribed(session, program, STDSIL_SetFloatParaValue, given,
                 [&](ModelType type, ModelValue& value) { return SetNumber(type, value, given); });
}

void SetDwordValue(Session& session, Program& program) {
    const auto given = static_cast<std::uint32_t>(ChooseInteger(program));
    SetDescribed(session, program, STDSIL_SetTXParaValue, given,
                 [&](ModelType type, ModelValue& value) { return SetDword(type, value, given); });
}

void SetTextValue(Session& session, Program& program) {
    const Texts given = ChooseText(program);
    HostText text(given);
    SetDescribed(session, program, STDSIL_SetTextParaValue, text.Pointer(),
                 [&](ModelType type, ModelValue& value) { return SetText(type, value, given); });
}

void SetTextBySlot(Session& session, Program& program) {
    const Texts address = ChooseAddress(program);
    const Texts given = ChooseText(program);
    session.management.SetValueFromText(HostText(address).Pointer(), HostText(given).Pointer());
    Write(session, address, nullptr,
          [&](ModelType type, ModelValue& value) { return SetText(type, value, given); });
}

/// Bytes that the values of the form must have room for; 0 for none.
std::uint32_t LeastLength(std::uint32_t form) {
    constexpr std::array<std::uint32_t, 11> kLengths = {0, 1, 2, 4, 4, 1, 4, 1, 8, 8, 8};
    return form < kLengths.size() ? kLengths[form] : 0;
}

std::uint32_t ChooseForm(Program& program) {
    constexpr std::array<std::uint32_t, 14> kForms = {1, 2, 3,  4, 5,          6,          7,
                                                      8, 9, 10, 0, 0xFFFFFFFF, 0x80000001, 11};
    return program.Pick(kForms);
}

template <typename Number>
Number Load(const std::string& bytes) {
    Number number;
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
}

bool SetInForm(std::uint32_t form, const std::string& bytes, ModelType type, ModelValue& value) {
    switch (form) {
        case 1:
        case 7:
            return SetWord(type, value, Load<std::uint8_t>(bytes));
        case 2:
            return SetWord(type, value, Load<std::uint16_t>(bytes));
        case 3:
            return SetNumber(type, value, Load<std::int32_t>(bytes));
        case 4:
            return SetNumber(type, value, Load<float>(bytes));
        case 5:
            return SetText(type, value, bytes.substr(0, bytes.find('\0')));
        case 6:
            return SetDword(type, value, Load<std::uint32_t>(bytes));
        case 8:
            return SetQword(type, value, Load<std::uint64_t>(bytes));
        default:
            return SetNumber(type, value, Load<double>(bytes));
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
                       Write(session, address, nullptr, [&](ModelType type, ModelValue& value) {
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

constexpr std::array kValueOperations = {
    Operation{'b', SetBit},         Operation{'w', SetWordValue},   Operation{'f', SetFloat},
    Operation{'x', SetDwordValue},  Operation{'t', SetTextValue},   Operation{'e', SetTextBySlot},
    Operation{'s', SetValueInForm}, Operation{'g', GetValueInForm},
};

}  // namespace

std::span<const Operation> ValueOperations() {
    return kValueOperations;
}

}  // namespace orvell::fuzz
