#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "fuzz/boundary/definition_files.h"
#include "fuzz/boundary/list_model.h"
#include "fuzz/boundary/program.h"
#include "host/module.h"
#include "orvell/orvell.h"
#include "support/fake_libraries.h"
#include "support/recorded_messages.h"
#include "unit/memstruct/fake_xml_library.h"

namespace orvell::fuzz {

/// Leaves the editing to whoever has been put in its place.
struct ReplaceableEditor final : public ui::ParameterEditor {
    bool Edit(DialogParameterRecord* record, const OnlineAccessRecord& host,
              const ui::EditorServices& services) override {
        return current->Edit(record, host, services);
    }

    ui::ParameterEditor* current = nullptr;
};

/// A module that has just been loaded, its host, and what the host expects of it.
class Session {
  public:
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Takes the management table anew, and compares it in a table of `size` bytes.
    void TakeManagementTable(std::uint32_t size);

    /// Compares all entries of the list with the model's.
    void CompareList();

    /// Compares how many messages have been shown since the last call.
    void ExpectMessages(std::size_t count);

    /// One message with this text must have been shown since the last call.
    void ExpectMessage(const std::string& text);

    /// A new change token of the configuration slots, the last one, or another old one.
    [[nodiscard]] std::uint32_t ChooseConfigToken(Program& program);

    /// Whether a configuration slot does its work under this token.
    [[nodiscard]] bool AdmitConfig(std::uint32_t token);

    /// The area as it is defined at present; null when it is not.
    [[nodiscard]] const ModelArea* AreaOf(std::int32_t identifier) const {
        return definitions.AreaOf(identifier);
    }

    /// While it lives a value is on its way to or from the host: the definitions must stay.
    class Transfer {
      public:
        explicit Transfer(Session& session) : session_(session) { ++session_.transfers_; }
        ~Transfer() { --session_.transfers_; }
        Transfer(const Transfer&) = delete;
        Transfer& operator=(const Transfer&) = delete;

      private:
        Session& session_;
    };

    bool hasPageLookUp = false;  ///< of the host's callbacks that report imports
    bool hasPageAppend = false;
    test::FakeXmlLibrary library;
    test::FakeLoader loader;
    test::RecordedMessages messages;
    ReplaceableEditor editor;
    ListModel list;
    ModelDefinitionFiles definitions;
    ManagementTable management{};
    StdParaFunctionTable standard{};

  private:
    void LoadModule();

    std::uint32_t configToken_ = 0;
    std::uint32_t newestConfigToken_ = 100;
    int transfers_ = 0;
};

/// One kind of calls. The letter stands for it in programs.
struct Operation {
    char letter;
    void (*run)(Session& session, Program& program);
};

/// What the list is driven with: as a whole, and its names and comments.
[[nodiscard]] std::span<const Operation> ListOperations();

/// Values, one at a time.
[[nodiscard]] std::span<const Operation> ValueOperations();

/// Values, in the forms of buffers.
[[nodiscard]] std::span<const Operation> FormOperations();

/// Values of consecutive numbers, and those that lie in signals.
[[nodiscard]] std::span<const Operation> VectorOperations();

/// The list's files, and what the host is told of them.
[[nodiscard]] std::span<const Operation> FileOperations();

/// The message page that is told.
[[nodiscard]] std::span<const Operation> PageOperations();

/// The configuration slots, and the files that they find and leave.
[[nodiscard]] std::span<const Operation> DefinitionFileOperations();

/// What is told of the definitions.
[[nodiscard]] std::span<const Operation> DefinitionOperations();

/// Values in records, shown.
[[nodiscard]] std::span<const Operation> RecordOperations();

/// Values that the user edits.
[[nodiscard]] std::span<const Operation> EditOperations();

/// Values built from texts and parameters.
[[nodiscard]] std::span<const Operation> ResolveOperations();

/// Values on their way to and from the host.
[[nodiscard]] std::span<const Operation> TransferOperations();

/// One of the operations, while a function of the host is being called.
void RunFromCallback(Session& session, Program& program);

/// Compares bytes that the module has written, or left alone, with those expected.
void RequireSame(const std::string& actual, const std::string& expected, const char* what);

/// An absent address counts as an empty one.
[[nodiscard]] inline std::string OrEmpty(const std::optional<std::string>& text) {
    return text.value_or("");
}

}  // namespace orvell::fuzz
