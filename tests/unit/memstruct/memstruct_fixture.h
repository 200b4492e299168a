#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "fake_xml_library.h"
#include "memstruct/definition_reader.h"
#include "memstruct/memory_structure_store.h"
#include "resources/built_in_strings.h"

namespace orvell::test {

/// The built-in texts with some of them replaced; an empty replacement takes a text away.
class ChangedStrings final : public platform::StringSource {
  public:
    [[nodiscard]] std::string Load(std::uint32_t number) const override {
        const auto changed = changes.find(number);
        return changed == changes.end() ? builtIn_.Load(number) : changed->second;
    }

    std::map<std::uint32_t, std::string> changes;

  private:
    resources::BuiltInStrings builtIn_;
};

class FixedClock final : public platform::LocalClock {
  public:
    [[nodiscard]] platform::CivilTime Now() const override { return {2024, 2, 29, 12, 0, 0}; }
};

/// A store over the fake XML library. Whatever a test does, all must have been given back and the
/// library must not have been misused at its end.
class MemstructTest : public testing::Test {
  protected:
    MemstructTest() {
        loader.libraries["XML.DLL"] = FakeXmlLibrary::Functions();
        EXPECT_TRUE(xml.Bind(loader, "XML.DLL"));
    }

    void TearDown() override { EXPECT_EQ(library.Complaints(), ""); }

    /// Replaces the store's content by the definitions of an XML text.
    void Define(const std::string& text) {
        library.files["definitions.xml"] = text;
        memstruct::XmlDocument document(xml);
        ASSERT_TRUE(document.Open("definitions.xml")) << document.LastError();
        store.Clear();
        store.AddImplicitTypes();
        memstruct::DefinitionReader(store, strings).Read(document.Root());
        store.ResolveReferences();
    }

    /// As `Define` with the children of "TypeList" and "MemoryList".
    void DefineLists(const std::string& types, const std::string& areas = "") {
        Define("<Definitions><TypeList>" + types + "</TypeList><MemoryList>" + areas +
               "</MemoryList></Definitions>");
    }

    [[nodiscard]] const memstruct::TypeDef* Type(std::string_view name) const {
        return store.FindType(name);
    }

    FakeXmlLibrary library;
    FakeLoader loader;
    ChangedStrings changedStrings;
    resources::StringTable strings{changedStrings};
    memstruct::XmlAccessBinding xml{strings};
    FixedClock clock;
    values::ValueConverterSet converters{clock};
    memstruct::MemoryStructureStore store{strings, xml, converters};
};

}  // namespace orvell::test
