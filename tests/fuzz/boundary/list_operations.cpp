#include <array>

#include "fuzz/boundary/host_memory.h"
#include "fuzz/boundary/session.h"
#include "fuzz/boundary/vocabulary.h"
#include "fuzz/require.h"

namespace orvell::fuzz {
namespace {

using Texts = std::optional<std::string>;

/// A record that names no project: whatever its size, it has no path.
void BuildOrClear(Session& session, Program& program) {
    const std::uint32_t size = program.Choose(sizeof(ConfigurationRecord) + 1);
    HostMemory record(std::max<std::size_t>(size, sizeof size), HostMemory::Place::Aligned);
    record.Put(0, std::string(size, '\0'));
    record.Put(0, BytesOf(size));
    const std::string before = record.Bytes();
    session.management.LoadList(program.Decide() ? record.As<ConfigurationRecord>() : nullptr);
    RequireSame(record.Bytes(), before, "loading leaves its record alone");
    if (session.list.Admit()) {
        session.list.SetDeclaredOnly(false);
        session.list.BuildOrClear();
    }
}

void Clear(Session& session, Program&) {
    session.management.ClearList();
    session.list.SetDeclaredOnly(false);
    if (session.list.Admit()) {
        session.list.Clear();
    }
}

void BeginUpdate(Session& session, Program&) {
    session.management.BeginUpdate();
    session.list.SetDeclaredOnly(true);
    if (session.list.Admit()) {
        session.list.ForgetDeclarations();
    }
}

void EndUpdate(Session& session, Program&) {
    session.management.EndUpdate();
    if (session.list.Admit()) {
        session.list.DropUndeclared();
    }
    session.list.SetDeclaredOnly(false);
}

void Declare(Session& session, Program& program) {
    const Texts oldAddress = ChooseAddress(program);
    const Texts newAddress = ChooseAddress(program);
    session.management.DeclareParameter(HostText(oldAddress).Pointer(),
                                        HostText(newAddress).Pointer());
    session.list.Declare(OrEmpty(oldAddress), OrEmpty(newAddress));
}

void SetToken(Session& session, Program& program) {
    constexpr std::array<std::uint32_t, 4> kTokens = {0, 1, 2, 0xFFFFFFFF};
    const std::uint32_t token = program.Pick(kTokens);
    session.management.SetCallToken(token);
    session.list.SetToken(token);
}

void TakeTable(Session& session, Program& program) {
    session.TakeManagementTable(program.Choose(100));
}

/// Sets or reads one of an entry's two texts.
struct TextField {
    std::string ModelEntry::*text;
    std::size_t longest;
    int32_t(ORVELL_CALL* set)(const char*, const char*);
    int32_t(ORVELL_CALL* get)(const char*, char*, std::uint32_t);
    void (ORVELL_CALL* ManagementTable::*getBySlot)(const char*, char*, std::uint32_t);
};

constexpr TextField kName = {&ModelEntry::name, 15, STDSIL_SetName, STDSIL_GetName,
                             &ManagementTable::GetName};
constexpr TextField kComment = {&ModelEntry::comment, 30, STDSIL_SetComment, STDSIL_GetComment,
                                &ManagementTable::GetComment};

void SetField(const TextField& field, Session& session, Program& program) {
    const Texts address = ChooseAddress(program);
    const Texts text = ChooseText(program);
    const std::int32_t result = field.set(HostText(address).Pointer(), HostText(text).Pointer());
    ModelEntry* const entry = session.list.FindOldest(OrEmpty(address));
    Require(result == (entry != nullptr ? 1 : 0), "texts are set where there is an entry");
    if (entry != nullptr) {
        entry->*field.text = OrEmpty(text).substr(0, field.longest);
    }
}

/// The text and its NUL over what lies in the buffer.
std::string Over(std::string buffer, const std::string& text) {
    const std::string taken = text.substr(0, buffer.size() - 1) + '\0';
    return buffer.replace(0, taken.size(), taken);
}

void GetField(const TextField& field, Session& session, Program& program) {
    const Texts address = ChooseAddress(program);
    const std::uint32_t size = ChooseLength(program);
    const ModelEntry* const entry = session.list.FindOldest(OrEmpty(address));
    HostMemory buffer(size);
    std::string expected = buffer.Bytes();
    if (size != 0) {
        expected = Over(expected, entry != nullptr ? entry->*field.text : "");
    }
    HostText addressText(address);
    if (program.Decide()) {
        (session.management.*field.getBySlot)(addressText.Pointer(), buffer.As<char>(), size);
        (session.management.*field.getBySlot)(addressText.Pointer(), nullptr, size);
    } else {
        const std::int32_t result = field.get(addressText.Pointer(), buffer.As<char>(), size);
        Require(result == (entry != nullptr ? 1 : 0), "texts are given where there is an entry");
        Require(result == field.get(addressText.Pointer(), nullptr, size),
                "the result does not depend on the buffer");
    }
    RequireSame(buffer.Bytes(), expected, "a text is given as far as it fits");
}

void GetSignalInfo(Session& session, Program& program) {
    const Texts address = ChooseAddress(program);
    const bool wantsName = program.Decide();
    const bool wantsComment = program.Decide();
    HostMemory name(16);
    HostMemory comment(31);
    const ModelEntry* const entry = session.list.FindOldest(OrEmpty(address));
    const std::string expectedName =
        wantsName ? Over(name.Bytes(), entry != nullptr ? entry->name : "") : name.Bytes();
    const std::string expectedComment =
        wantsComment ? Over(comment.Bytes(), entry != nullptr ? entry->comment : "")
                     : comment.Bytes();
    const std::int32_t result =
        STDSIL_GetSignalInfo(HostText(address).Pointer(), wantsName ? name.As<char>() : nullptr,
                             wantsComment ? comment.As<char>() : nullptr);
    Require(result == (entry != nullptr ? 1 : 0), "entries are described where there are any");
    RequireSame(name.Bytes(), expectedName, "the whole name is given");
    RequireSame(comment.Bytes(), expectedComment, "the whole comment is given");
}

constexpr std::array kListOperations = {
    Operation{'B', BuildOrClear},
    Operation{'Z', Clear},
    Operation{'U', BeginUpdate},
    Operation{'V', EndUpdate},
    Operation{'D', Declare},
    Operation{'T', SetToken},
    Operation{'M', TakeTable},
    Operation{'n', [](Session& session, Program& program) { SetField(kName, session, program); }},
    Operation{'N', [](Session& session, Program& program) { GetField(kName, session, program); }},
    Operation{'c',
              [](Session& session, Program& program) { SetField(kComment, session, program); }},
    Operation{'C',
              [](Session& session, Program& program) { GetField(kComment, session, program); }},
    Operation{'I', GetSignalInfo},
    Operation{'=', [](Session& session, Program&) { session.CompareList(); }},
};

}  // namespace

std::span<const Operation> ListOperations() {
    return kListOperations;
}

}  // namespace orvell::fuzz
