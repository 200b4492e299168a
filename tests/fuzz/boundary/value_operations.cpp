#include <array>

#include "fuzz/boundary/host_memory.h"
#include "fuzz/boundary/session.h"
#include "fuzz/boundary/vocabulary.h"
#include "fuzz/require.h"

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

/// As the list's `Write`; what may be written gets name and comment, whatever becomes of the value.
template <typename Set>
bool WriteDescribed(Session& session, const Described& described, const Set& set) {
    ModelEntry* written = nullptr;
    const bool isSet = session.list.Write(OrEmpty(described.address), set, &written);
    if (written != nullptr) {
        written->name = OrEmpty(described.name).substr(0, 15);
        written->comment = OrEmpty(described.comment).substr(0, 30);
    }
    return isSet;
}

/// Calls an accessor that sets a described value, and compares its result.
template <typename Accessor, typename Given, typename Set>
void SetDescribed(Session& session, Program& program, Accessor accessor, const Given& given,
                  const Set& set) {
    const Described described(program);
    const std::int32_t result =
        accessor(HostText(described.address).Pointer(), HostText(described.name).Pointer(),
                 HostText(described.comment).Pointer(), given);
    const bool isSet = WriteDescribed(session, described, set);
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
    session.list.Write(OrEmpty(address), [&](ModelType type, ModelValue& value) {
        return SetText(type, value, given);
    });
}

constexpr std::array kValueOperations = {
    Operation{'b', SetBit},        Operation{'w', SetWordValue}, Operation{'f', SetFloat},
    Operation{'x', SetDwordValue}, Operation{'t', SetTextValue}, Operation{'e', SetTextBySlot},
};

}  // namespace

std::span<const Operation> ValueOperations() {
    return kValueOperations;
}

}  // namespace orvell::fuzz
