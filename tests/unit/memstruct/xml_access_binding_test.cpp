#include "memstruct/xml_access_binding.h"

#include "memstruct_fixture.h"

namespace orvell::test {
namespace {

using memstruct::XmlAccessBinding;

class XmlAccessBindingTest : public testing::Test {
  protected:
    void TearDown() override { EXPECT_EQ(library.Complaints(), ""); }

    /// A document in memory and its root.
    XmlNodeHandle OpenRoot(const std::string& text) {
        library.files["file.xml"] = text;
        document = xml.Open("file.xml");
        return xml.RootNode(document);
    }

    FakeXmlLibrary library;
    FakeLoader loader;
    resources::BuiltInStrings source;
    resources::StringTable strings{source};
    XmlAccessBinding xml{strings};
    XmlDocumentHandle document = 0;
};

TEST_F(XmlAccessBindingTest, BindsALibraryWithAllFunctions) {
    loader.libraries["XML.DLL"] = FakeXmlLibrary::Functions();
    EXPECT_EQ(FakeXmlLibrary::Functions().size(), 26U);
    EXPECT_TRUE(xml.Bind(loader, "XML.DLL"));
    EXPECT_NE(xml.BoundLibrary(), nullptr);
    EXPECT_EQ(library.calls, 0U);
}

TEST_F(XmlAccessBindingTest, RejectsALibraryThatLacksAnyFunction) {
    for (const auto& [name, address] : FakeXmlLibrary::Functions()) {
        loader.journal.clear();
        loader.libraries["XML.DLL"] = FakeXmlLibrary::Functions();
        loader.libraries["XML.DLL"].erase(name);
        EXPECT_FALSE(xml.Bind(loader, "XML.DLL")) << name;
        EXPECT_EQ(xml.BoundLibrary(), nullptr) << name;
        EXPECT_EQ(xml.Create(), 0U) << name;
        EXPECT_EQ(loader.journal, (std::vector<std::string>{"load XML.DLL", "free XML.DLL"}));
    }
}

TEST_F(XmlAccessBindingTest, DoesNotLoadAnEmptyPath) {
    EXPECT_FALSE(xml.Bind(loader, ""));
    EXPECT_TRUE(loader.journal.empty());
}

TEST_F(XmlAccessBindingTest, FailsWhenTheLibraryDoesNotLoad) {
    EXPECT_FALSE(xml.Bind(loader, "XML.DLL"));
    EXPECT_EQ(xml.BoundLibrary(), nullptr);
}

TEST_F(XmlAccessBindingTest, BindingAnewFreesTheOldLibraryFirst) {
    loader.libraries["OLD.DLL"] = FakeXmlLibrary::Functions();
    loader.libraries["NEW.DLL"] = FakeXmlLibrary::Functions();
    ASSERT_TRUE(xml.Bind(loader, "OLD.DLL"));
    ASSERT_TRUE(xml.Bind(loader, "NEW.DLL"));
    EXPECT_EQ(loader.journal,
              (std::vector<std::string>{"load OLD.DLL", "free OLD.DLL", "load NEW.DLL"}));
    EXPECT_FALSE(xml.Bind(loader, "NONE.DLL"));
    EXPECT_EQ(xml.BoundLibrary(), nullptr);
    EXPECT_EQ(xml.Create(), 0U);
}

TEST_F(XmlAccessBindingTest, UnbindingFreesTheLibraryOnce) {
    loader.libraries["XML.DLL"] = FakeXmlLibrary::Functions();
    ASSERT_TRUE(xml.Bind(loader, "XML.DLL"));
    xml.Unbind();
    xml.Unbind();
    EXPECT_EQ(loader.journal, (std::vector<std::string>{"load XML.DLL", "free XML.DLL"}));
    EXPECT_EQ(xml.Create(), 0U);
    EXPECT_EQ(library.calls, 0U);
}

TEST_F(XmlAccessBindingTest, AbandoningLeavesTheLibraryToTheProcess) {
    loader.libraries["XML.DLL"] = FakeXmlLibrary::Functions();
    ASSERT_TRUE(xml.Bind(loader, "XML.DLL"));
    xml.Abandon();
    xml.Abandon();
    ASSERT_EQ(loader.journal.size(), 3U);
    EXPECT_EQ(loader.journal[1], "abandon XML.DLL");
    EXPECT_EQ(xml.Create(), 0U);
}

TEST_F(XmlAccessBindingTest, AnswersEveryCallWhenNothingIsBound) {
    std::string text = "old";
    std::uint32_t number = 7;
    EXPECT_EQ(xml.Create(), 0U);
    EXPECT_EQ(xml.Open("file.xml"), 0U);
    EXPECT_FALSE(xml.Save(1, "file.xml"));
    xml.Close(1);
    xml.FreeHandle(1);
    EXPECT_EQ(xml.LastError(), "");
    EXPECT_EQ(xml.RootNode(1), 0U);
    EXPECT_EQ(xml.AddRootNode(1, "a"), 0U);
    EXPECT_EQ(xml.FirstChild(1), 0U);
    EXPECT_EQ(xml.NextNode(1), 0U);
    EXPECT_EQ(xml.ChildByName(1, "a"), 0U);
    EXPECT_EQ(xml.AddChild(1, "a"), 0U);
    EXPECT_FALSE(xml.NodeName(1, text));
    EXPECT_EQ(text, "");
    EXPECT_FALSE(xml.AttribName(1, 0, text = "old"));
    EXPECT_EQ(text, "");
    EXPECT_FALSE(xml.AttribText(1, "a", text = "old"));
    EXPECT_EQ(text, "");
    EXPECT_EQ(xml.AttribCount(1), 0U);
    EXPECT_FALSE(xml.AttribULong(1, "a", number));
    EXPECT_EQ(number, 0U);
    EXPECT_FALSE(xml.SetAttribText(1, "a", "b"));
}

TEST_F(XmlAccessBindingTest, CopiesTextsAndGivesThemBack) {
    loader.libraries["XML.DLL"] = FakeXmlLibrary::Functions();
    ASSERT_TRUE(xml.Bind(loader, "XML.DLL"));
    const XmlNodeHandle root = OpenRoot("<root first='1' second=''/>");
    ASSERT_NE(root, 0U);
    std::string text;
    EXPECT_TRUE(xml.NodeName(root, text));
    EXPECT_EQ(text, "root");
    EXPECT_EQ(xml.AttribCount(root), 2U);
    EXPECT_TRUE(xml.AttribName(root, 1, text));
    EXPECT_EQ(text, "second");
    EXPECT_TRUE(xml.AttribText(root, "first", text));
    EXPECT_EQ(text, "1");
    EXPECT_TRUE(xml.AttribText(root, "second", text));
    EXPECT_EQ(text, "");
    EXPECT_EQ(library.TextsOut(), 0U);
    xml.FreeHandle(root);
    xml.Close(document);
}

TEST_F(XmlAccessBindingTest, EmptiesTheTextOfACallThatFails) {
    loader.libraries["XML.DLL"] = FakeXmlLibrary::Functions();
    ASSERT_TRUE(xml.Bind(loader, "XML.DLL"));
    const XmlNodeHandle root = OpenRoot("<root number='x'/>");
    std::string text = "old";
    EXPECT_FALSE(xml.AttribText(root, "absent", text));
    EXPECT_EQ(text, "");
    EXPECT_FALSE(xml.AttribName(root, 1, text = "old"));
    EXPECT_EQ(text, "");
    library.failingCall = library.calls + 1;
    EXPECT_FALSE(xml.NodeName(root, text = "old"));
    EXPECT_EQ(text, "");
    std::uint32_t number = 7;
    EXPECT_FALSE(xml.AttribULong(root, "absent", number));
    EXPECT_EQ(number, 0U);
    EXPECT_FALSE(xml.AttribULong(root, "number", number = 7));
    EXPECT_EQ(number, 0U);
    EXPECT_EQ(library.TextsOut(), 0U);
    xml.FreeHandle(root);
    xml.Close(document);
}

TEST_F(XmlAccessBindingTest, TellsTheLastError) {
    loader.libraries["XML.DLL"] = FakeXmlLibrary::Functions();
    ASSERT_TRUE(xml.Bind(loader, "XML.DLL"));
    EXPECT_EQ(xml.LastError(), "");
    library.files["broken.xml"] = "<root>";
    EXPECT_EQ(xml.Open("broken.xml"), 0U);
    EXPECT_EQ(xml.LastError(), "unexpected end of file");
}

/// A library whose functions answer what a careless one might.
struct CarelessLibrary {
    static std::int32_t ORVELL_CALL NullText(std::uint32_t, MString*) { return 1; }
    static std::int32_t ORVELL_CALL NullError(MString*) { return 1; }
    static std::int32_t ORVELL_CALL ErrorWithoutResult(MString* text) {
        static char reason[] = "reason";
        text->text = reason;
        return 0;
    }
    static void ORVELL_CALL Free(MString*) { ++returned; }
    static std::int32_t ORVELL_CALL Negative(std::uint32_t, const char*) { return -1; }
    static std::int32_t ORVELL_CALL NegativeSet(std::uint32_t, const char*, const char*) {
        return -1;
    }
    static inline int returned;
};

TEST_F(XmlAccessBindingTest, TakesNullTextsAsEmpty) {
    Symbols& symbols = loader.libraries["XML.DLL"] = FakeXmlLibrary::Functions();
    symbols["XMLIF_GetNodeName"] = Address(&CarelessLibrary::NullText);
    symbols["XMLIF_GetLastError"] = Address(&CarelessLibrary::NullError);
    symbols["XMLIF_FreeMString"] = Address(&CarelessLibrary::Free);
    ASSERT_TRUE(xml.Bind(loader, "XML.DLL"));
    CarelessLibrary::returned = 0;
    std::string text = "old";
    EXPECT_TRUE(xml.NodeName(1, text));
    EXPECT_EQ(text, "");
    EXPECT_EQ(xml.LastError(), "");
    EXPECT_EQ(CarelessLibrary::returned, 2);
}

TEST_F(XmlAccessBindingTest, TakesTheLastErrorWhateverTheResult) {
    Symbols& symbols = loader.libraries["XML.DLL"] = FakeXmlLibrary::Functions();
    symbols["XMLIF_GetLastError"] = Address(&CarelessLibrary::ErrorWithoutResult);
    symbols["XMLIF_FreeMString"] = Address(&CarelessLibrary::Free);
    ASSERT_TRUE(xml.Bind(loader, "XML.DLL"));
    CarelessLibrary::returned = 0;
    EXPECT_EQ(xml.LastError(), "reason");
    EXPECT_EQ(CarelessLibrary::returned, 1);
}

TEST_F(XmlAccessBindingTest, TakesNegativeResultsOfWritingAsFailure) {
    Symbols& symbols = loader.libraries["XML.DLL"] = FakeXmlLibrary::Functions();
    symbols["XMLIF_Save"] = Address(&CarelessLibrary::Negative);
    symbols["XMLIF_SetStringValueAttrib"] = Address(&CarelessLibrary::NegativeSet);
    ASSERT_TRUE(xml.Bind(loader, "XML.DLL"));
    EXPECT_FALSE(xml.Save(1, "file.xml"));
    EXPECT_FALSE(xml.SetAttribText(1, "a", "b"));
}

}  // namespace
}  // namespace orvell::test
