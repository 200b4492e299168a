#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "host/management_slots.h"
#include "host/module.h"
#include "resources/built_in_strings.h"
#include "support/fake_libraries.h"
#include "support/recorded_messages.h"

namespace orvell::host {

/// A registry that exists in the test only.
class FakeRegistry final : public platform::Registry {
  public:
    using Place = std::tuple<platform::RegistryRoot, std::string, std::string>;

    std::optional<std::string> ReadText(platform::RegistryRoot root, const std::string& key,
                                        const std::string& valueName) const override {
        const auto found = texts.find({root, key, valueName});
        return found == texts.end() ? std::nullopt : std::optional(found->second);
    }

    std::map<Place, std::string> texts;
};

/// Keeps the command lines that would have been started.
class RecordedProcesses final : public platform::ProcessStarter {
  public:
    bool Start(const std::string& commandLine) override {
        started.push_back(commandLine);
        return canStart;
    }

    std::vector<std::string> started;
    bool canStart = true;
};

/// A module of its own for each test, with the built-in texts and a host's message page.
class ManagementTest : public testing::Test {
  protected:
    ManagementTest();
    ~ManagementTest() override;

    /// Told of each entry into the host and each return from it; null: nobody is.
    static inline void (*onEntryAndReturn)(bool isEntry) = nullptr;

    static paramlist::ParameterList& List();

    /// Loads without a project: all kinds, no parameter.
    static void BuildKinds() { management::LoadList(nullptr); }

    /// Has all texts loaded, which the module keeps.
    static void LoadAllTexts();

    /// The value's text, "none" when there is none.
    static std::string TextOf(const std::string& address);

    /// "name|comment", or "missing".
    static std::string DescriptionOf(const std::string& address);

    static bool Exists(const std::string& address);

    /// The messages shown since the last call.
    std::vector<platform::Message> TakeMessages() { return std::exchange(messages.shown, {}); }

    test::FakeLoader loader;
    test::RecordedMessages messages;
    FakeRegistry registry;
    RecordedProcesses processes;
    std::vector<std::string>& reported;  ///< lines in the host's message page

  private:
    /// The host's function of the message page.
    static std::int32_t ORVELL_CALL AppendLine(std::int32_t page, const char* line,
                                               std::uint32_t color, std::int32_t emphasis);
};

}  // namespace orvell::host
