#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "host/module.h"
#include "list_model.h"
#include "orvell/orvell.h"
#include "program.h"
#include "support/fake_libraries.h"
#include "support/recorded_messages.h"

namespace orvell::fuzz {

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

    test::FakeLoader loader;
    test::RecordedMessages messages;
    ListModel list;
    ManagementTable management{};
    StdParaFunctionTable standard{};

  private:
    void LoadModule();
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

/// Values of consecutive numbers, and those that lie in signals.
[[nodiscard]] std::span<const Operation> VectorOperations();

/// Compares bytes that the module has written, or left alone, with those expected.
void RequireSame(const std::string& actual, const std::string& expected, const char* what);

/// An absent address counts as an empty one.
[[nodiscard]] inline std::string OrEmpty(const std::optional<std::string>& text) {
    return text.value_or("");
}

}  // namespace orvell::fuzz
