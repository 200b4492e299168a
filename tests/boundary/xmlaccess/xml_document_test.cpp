// Files: reading, refusing, writing. Texts at the boundary are bytes in code page 1252.

#include <gtest/gtest.h>

#include "boundary/xmlaccess/scratch_folder.h"
#include "boundary/xmlaccess/xml_access.h"

namespace workbench_test {
namespace {

class XmlDocumentTest : public testing::Test {
  protected:
    XmlAccess xml_;
    ScratchFolder folder_;
};

bool Holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(XmlDocumentTest, VersionSatisfiesTheModule) {
    EXPECT_DOUBLE_EQ(xml_.Version(), 2.01);
}

TEST_F(XmlDocumentTest, ReadsUtf8IntoTheCodePage) {
    const auto path =
        folder_.Write("U.XML", "<R\xC3\xBChrwerk Name='\xC3\x84\xC3\x9F \xE2\x82\xAC'/>");
    const auto document = xml_.Open(path.c_str());
    const auto root = xml_.GetRootNode(document);
    EXPECT_EQ(xml_.Name(root), "R\xFChrwerk");
    EXPECT_EQ(xml_.Attribute(root, "Name"), "\xC4\xDF \x80");
    xml_.FreeHandle(root);
    xml_.Close(document);
}

TEST_F(XmlDocumentTest, ReadsTheEncodingThatTheFileDeclares) {
    const auto path = folder_.Write(
        "W.XML", "<?xml version=\"1.0\" encoding=\"windows-1252\"?><a n\xE4me='\x80\xFC'/>");
    const auto document = xml_.Open(path.c_str());
    const auto root = xml_.GetRootNode(document);
    EXPECT_EQ(xml_.Attribute(root, "n\xE4me"), "\x80\xFC");
}

TEST_F(XmlDocumentTest, CharactersBeyondTheCodePageBecomeQuestionMarks) {
    const auto path = folder_.Write("Q.XML", "<a b='\xCE\xA9\xE4\xB8\x80x'/>");
    const auto document = xml_.Open(path.c_str());
    EXPECT_EQ(xml_.Attribute(xml_.GetRootNode(document), "b"), "??x");
}

TEST_F(XmlDocumentTest, SavedFileDeclaresAndUsesUtf8WhateverItWasReadIn) {
    const auto path = folder_.Write(
        "W.XML", "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n<a b='\x80\xFC'/>\n");
    const auto document = xml_.Open(path.c_str());
    ASSERT_GT(xml_.Save(document, folder_.Path("OUT.XML").c_str()), 0);
    const std::string saved = folder_.Read("OUT.XML");
    EXPECT_EQ(saved.find("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"), 0U);
    EXPECT_TRUE(Holds(saved, "<a b=\"\xE2\x82\xAC\xC3\xBC\"/>")) << saved;
    EXPECT_FALSE(Holds(saved, "1252"));
}

TEST_F(XmlDocumentTest, NewDocumentSurvivesSaveAndReading) {
    const auto document = xml_.Create();
    const auto root = xml_.AddRootNodeByName(document, "Definitions");
    const auto type = xml_.AddChildNodeByName(root, "Ger\xE4t");
    EXPECT_GT(xml_.SetStringValueAttrib(type, "Name", "a<b>&\"'\n\t\xE4"), 0);
    ASSERT_GT(xml_.Save(document, folder_.Path("N.XML").c_str()), 0);
    EXPECT_EQ(xml_.Close(document), 1);

    const auto again = xml_.Open(folder_.Path("N.XML").c_str());
    const auto child = xml_.GetFirstChildNode(xml_.GetRootNode(again));
    EXPECT_EQ(xml_.Name(child), "Ger\xE4t");
    EXPECT_EQ(xml_.Attribute(child, "Name"), "a<b>&\"'\n\t\xE4");
}

TEST_F(XmlDocumentTest, SecondRootIsRefused) {
    const auto document = xml_.Create();
    EXPECT_NE(xml_.AddRootNodeByName(document, "a"), 0U);
    EXPECT_EQ(xml_.AddRootNodeByName(document, "b"), 0U);
    EXPECT_TRUE(Holds(xml_.LastError(), "root"));
}

TEST_F(XmlDocumentTest, NoErrorBeforeTheFirstFailure) {
    EXPECT_EQ(xml_.LastError(), XmlAccess::kNone);
}

TEST_F(XmlDocumentTest, MalformedFileNamesReasonAndPlace) {
    const auto path = folder_.Write("BAD.XML", "<a>\n  <b/>\n  <c></d>\n</a>\n");
    EXPECT_EQ(xml_.Open(path.c_str()), 0U);
    EXPECT_TRUE(Holds(xml_.LastError(), "(line 3, column ")) << xml_.LastError();
    EXPECT_FALSE(Holds(xml_.LastError(), "\n"));
    EXPECT_EQ(xml_.LastError().find("(line"), xml_.LastError().rfind("(line"));
}

class RefusedFile : public XmlDocumentTest, public testing::WithParamInterface<const char*> {};

TEST_P(RefusedFile, GivesNoDocumentButAReason) {
    const auto path = folder_.Write("REFUSED.XML", GetParam());
    EXPECT_EQ(xml_.Open(path.c_str()), 0U);
    EXPECT_GT(xml_.LastError().size(), 10U);
}

INSTANTIATE_TEST_SUITE_P(Files, RefusedFile,
                         testing::Values("", " ", "no markup", "<a", "<a/><b/>", "<a b='1' b='2'/>",
                                         "<a>&nbsp;</a>", "<a>\xE4</a>", "<a b='\x01'/>",
                                         "\xFF\xFE<", "<?xml version='1.0'?>"));

class DocumentType : public XmlDocumentTest, public testing::WithParamInterface<const char*> {};

TEST_P(DocumentType, IsRefused) {
    folder_.Write("SECRET.TXT", "secret");
    const auto path = folder_.Write("DTD.XML", GetParam());
    EXPECT_EQ(xml_.Open(path.c_str()), 0U);
    EXPECT_TRUE(Holds(xml_.LastError(), "DTD") || Holds(xml_.LastError(), "DOCTYPE"));
    EXPECT_EQ(xml_.ParseText(GetParam()), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    Files, DocumentType,
    testing::Values("<!DOCTYPE a><a/>", "<?xml version='1.0'?>\n<!-- x -->\n<!DOCTYPE a><a/>",
                    "<!DOCTYPE a SYSTEM 'a.dtd'><a/>",
                    "<!DOCTYPE a [<!ENTITY e 'text'>]><a b='&e;'>&e;</a>",
                    "<!DOCTYPE a [<!ENTITY e SYSTEM 'SECRET.TXT'>]><a>&e;</a>"));

TEST_F(XmlDocumentTest, MissingFileEmptyPathAndFolderAreRefused) {
    EXPECT_EQ(xml_.Open(folder_.Path("NONE.XML").c_str()), 0U);
    EXPECT_TRUE(Holds(xml_.LastError(), "no such file"));
    EXPECT_EQ(xml_.Open(""), 0U);
    EXPECT_EQ(xml_.LastError(), "No file is named.");
    EXPECT_EQ(xml_.Open(nullptr), 0U);
    EXPECT_EQ(xml_.Open(folder_.Path("").c_str()), 0U);
    EXPECT_EQ(xml_.Open("http://localhost/x.xml"), 0U);
}

TEST_F(XmlDocumentTest, TextIsParsedWhateverEncodingItDeclares) {
    for (const char* text : {"<a b='\xE4'/>", "<?xml version='1.0' encoding='UTF-8'?><a b='\xE4'/>",
                             "<?xml version='1.0' encoding='windows-1252'?><a b='\xE4'/>"}) {
        const auto document = xml_.ParseText(text);
        EXPECT_EQ(xml_.Attribute(xml_.GetRootNode(document), "b"), "\xE4") << text;
    }
    EXPECT_EQ(xml_.ParseText("<a>\n<b></c></a>"), 0U);
    EXPECT_TRUE(Holds(xml_.LastError(), "(line 2, column ")) << xml_.LastError();
}

TEST_F(XmlDocumentTest, FailedSaveLeavesNothingBehind) {
    const auto document = xml_.ParseText("<a/>");
    EXPECT_EQ(xml_.Save(document, folder_.Path("NO\\SUCH\\FOLDER.XML").c_str()), 0);
    EXPECT_TRUE(Holds(xml_.LastError(), "cannot be written")) << xml_.LastError();
    EXPECT_EQ(xml_.Save(document, ""), 0);

    const auto path = folder_.Write("READONLY.XML", "old");
    const HANDLE keeper =
        CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(xml_.Save(document, path.c_str()), 0);
    CloseHandle(keeper);
    EXPECT_EQ(folder_.Read("READONLY.XML"), "old");
    EXPECT_FALSE(folder_.Has("READONLY.XML.NEW"));
}

TEST_F(XmlDocumentTest, SaveReplacesTheFileThatItCameFrom) {
    const auto path = folder_.Write("SAME.XML", "<a><b/></a>");
    const auto document = xml_.Open(path.c_str());
    xml_.SetULONGValueAttrib(xml_.GetRootNode(document), "n", 4294967295U);
    ASSERT_GT(xml_.Save(document, path.c_str()), 0);
    EXPECT_TRUE(Holds(folder_.Read("SAME.XML"), "<a n=\"4294967295\">"));
    EXPECT_FALSE(folder_.Has("SAME.XML.NEW"));
}

TEST_F(XmlDocumentTest, LibraryCanBeUnloadedWithDocumentsOpen) {
    {
        XmlAccess second;
        static_cast<void>(second.GetRootNode(second.ParseText("<a/>")));
    }
    EXPECT_NE(xml_.ParseText("<a/>"), 0U);
}

}  // namespace
}  // namespace workbench_test
