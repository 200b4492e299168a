#include <array>
#include <cstdlib>
#include <stdexcept>

#include "fuzz/boundary/host_record.h"
#include "fuzz/boundary/session.h"
#include "fuzz/boundary/vocabulary.h"
#include "fuzz/require.h"

namespace orvell::fuzz {
namespace {

/// What the user does with the value, once the host has been let in or not.
enum class Deed { Cancel, Accept, Lengthen, Drop, Fail };

constexpr std::string_view kLongerValue = "a longer value";

/// Bytes that belong to whoever holds them; null for an empty text.
void* Allocated(std::string_view bytes) {
    void* const copy = bytes.empty() ? nullptr : std::malloc(bytes.size());
    if (copy != nullptr) {
        std::memcpy(copy, bytes.data(), bytes.size());
    }
    return copy;
}

/// A parameter that the host lets the user edit.
class Edited {
  public:
    explicit Edited(Program& program)
        : name_(ChooseText(program)),
          extension_(ChooseText(program)),
          block_(OrEmpty(ChooseText(program))),
          value_(OrEmpty(ChooseText(program))),
          content_{sizeof content_,   this,
                   program.Choose(4), ChooseArea(program),
                   program.Choose(4), static_cast<std::uint32_t>(block_.size()),
                   Allocated(block_), static_cast<std::uint32_t>(value_.size()),
                   Allocated(value_), program.Choose(30),
                   name_.Pointer(),   extension_.Pointer(),
                   program.Byte(),    {1, 2, 3}},
          record_(program, content_),
          before_(record_.Bytes()),
          understood_(record_.Understood()) {}

    [[nodiscard]] DialogParameterRecord* Record() { return record_.Pointer(); }

    /// While the user edits, the record is the module's.
    void RequireGiven(const DialogParameterRecord& record) {
        RequireSame(BytesOf(record), BytesOf(understood_), "the user edits what the host gives");
        RequireSame(record_.Bytes(), With({}), "what is edited has been moved");
    }

    void RequireUnchanged() {
        RequireSame(record_.Bytes(), before_, "what is not accepted comes back as it was");
        RequireBytes(content_.bytes, value_);
        Release();
    }

    /// The record must be as the user has left it, as far as it reaches.
    void RequireAccepted(DialogParameterRecord accepted, std::string_view value) {
        accepted.block = HoldsBlock() ? accepted.block : nullptr;
        accepted.bytes = HoldsValue() ? accepted.bytes : nullptr;
        RequireSame(record_.Bytes(), With(accepted), "what is accepted comes back");
        if (HoldsValue()) {
            RequireBytes(accepted.bytes, value);
            content_.bytes = accepted.bytes;
        }
        Release();
    }

    [[nodiscard]] std::string_view Value() const {
        return HoldsValue() ? std::string_view(value_) : std::string_view();
    }

  private:
    [[nodiscard]] bool HoldsBlock() const { return record_.Holds(24); }
    [[nodiscard]] bool HoldsValue() const { return record_.Holds(32); }

    /// The host's record with this content; what lies behind stays.
    [[nodiscard]] std::string With(const DialogParameterRecord& content) const {
        std::string bytes = before_;
        const std::string written = BytesOf(content).substr(0, bytes.size());
        bytes.replace(0, written.size(), written);
        return bytes.replace(0, sizeof(std::uint32_t), BytesOf(record_.Size()));
    }

    static void RequireBytes(const void* bytes, std::string_view expected) {
        Require((bytes == nullptr) == expected.empty(), "a value has bytes unless it is empty");
        Require(expected.empty() || std::memcmp(bytes, expected.data(), expected.size()) == 0,
                "values stay as they are accepted");
    }

    /// The block comes back untouched in any case.
    void Release() {
        RequireBytes(content_.block, block_);
        std::free(content_.block);
        std::free(content_.bytes);
    }

    HostText name_;
    HostText extension_;
    std::string block_;
    std::string value_;
    DialogParameterRecord content_;
    HostRecord<DialogParameterRecord> record_;
    std::string before_;
    DialogParameterRecord understood_;
};

/// The host's functions as far as its table reaches; nobody calls them.
OnlineAccessRecord AllFunctions() {
    OnlineAccessRecord online;
    std::memset(static_cast<void*>(&online), 0x5A, sizeof online);
    online.size = sizeof online;
    return online;
}

/// Edits one parameter in the place of a user.
class User final : public ui::ParameterEditor {
  public:
    User(Session& session, Program& program, Edited* edited, const OnlineAccessRecord& online)
        : session_(session),
          program_(program),
          edited_(edited),
          online_(online),
          deed_(program.Pick(kDeeds)),
          letsHostIn_(program.Decide()) {}

    bool Edit(DialogParameterRecord* record, const OnlineAccessRecord& online,
              const ui::EditorServices&) override {
        isAsked_ = true;
        RequireSame(BytesOf(online), BytesOf(online_), "the user writes by the host's functions");
        Require((record == nullptr) == (edited_ == nullptr), "there is a record to edit, or none");
        if (edited_ != nullptr) {
            edited_->RequireGiven(*record);
        }
        if (letsHostIn_) {
            RunFromCallback(session_, program_);
        }
        if (record != nullptr) {
            Change(*record);
        }
        if (deed_ == Deed::Fail) {
            throw std::runtime_error("a dialog that fails");
        }
        return deed_ != Deed::Cancel;
    }

    void RequireDone(std::int32_t result) {
        const bool isAccepted = deed_ != Deed::Cancel && deed_ != Deed::Fail;
        Require(isAsked_, "the user is asked");
        Require(result == (isAccepted ? 1 : 0), "the result tells whether the user accepts");
        if (edited_ == nullptr) {
            return;
        }
        if (isAccepted) {
            edited_->RequireAccepted(left_, deed_ == Deed::Accept     ? edited_->Value()
                                            : deed_ == Deed::Lengthen ? kLongerValue
                                                                      : std::string_view());
        } else {
            edited_->RequireUnchanged();
        }
    }

  private:
    static constexpr std::array kDeeds = {Deed::Accept, Deed::Cancel, Deed::Lengthen, Deed::Drop,
                                          Deed::Fail};

    /// The bytes belong to the record: they change only if that is accepted.
    void Change(DialogParameterRecord& record) {
        record.boxWidth += 7;
        record.format ^= 3;
        record.count = 5;
        if (deed_ == Deed::Lengthen || deed_ == Deed::Drop) {
            std::free(record.bytes);
            const std::string_view value =
                deed_ == Deed::Lengthen ? kLongerValue : std::string_view();
            record.bytes = Allocated(value);
            record.length = static_cast<std::uint32_t>(value.size());
        }
        left_ = record;
    }

    Session& session_;
    Program& program_;
    Edited* edited_;
    OnlineAccessRecord online_;
    Deed deed_;
    bool letsHostIn_;
    bool isAsked_ = false;
    DialogParameterRecord left_{};
};

/// Slot 1 on a record or none; a user may let the host in, which may let another one edit.
void EditParameter(Session& session, Program& program) {
    std::optional<Edited> edited;
    if (program.Choose(8) != 7) {
        edited.emplace(program);
    }
    HostRecord<OnlineAccessRecord> online(program, AllFunctions());
    const bool isOnline = program.Choose(4) != 3;
    OnlineAccessRecord none{};
    none.size = sizeof none;
    User user(session, program, edited ? &*edited : nullptr, isOnline ? online.Understood() : none);
    ui::ParameterEditor* const before = std::exchange(session.editor.current, &user);
    const std::int32_t result = session.standard.EditStdParameter(
        edited ? edited->Record() : nullptr, isOnline ? online.Pointer() : nullptr);
    session.editor.current = before;
    user.RequireDone(result);
}

constexpr std::array kEditOperations = {Operation{'d', EditParameter}};

}  // namespace

std::span<const Operation> EditOperations() {
    return kEditOperations;
}

}  // namespace orvell::fuzz
