#include "memstruct/memory_structure_store.h"

#include "memstruct_fixture.h"
#include "temporary_folder.h"

namespace orvell::test {
namespace {

using memstruct::MemoryStructureStore;
using memstruct::TypeDef;
using values::BaseTypeCode;

class MemoryStructureStoreTest : public MemstructTest {
  protected:
    [[nodiscard]] std::string TypeNames() const {
        std::string names;
        for (const TypeDef& type : store.Types()) {
            names += type.name + ' ';
        }
        return names;
    }

    static TypeDef Named(const std::string& name, BaseTypeCode code) {
        TypeDef type;
        type.name = name;
        type.baseType = code;
        return type;
    }
};

TEST_F(MemoryStructureStoreTest, BeginsEmpty) {
    EXPECT_TRUE(store.Types().empty());
    EXPECT_TRUE(store.Areas().empty());
    EXPECT_EQ(store.GetCurrentPath(), "");
    EXPECT_EQ(store.GetDefaultPath(), "");
    EXPECT_EQ(store.FindType("FLOAT"), nullptr);
    EXPECT_EQ(store.FindMemoryArea(0), nullptr);
}

TEST_F(MemoryStructureStoreTest, AddsTheImplicitTypesInFront) {
    store.AddType(Named("A", BaseTypeCode::Int));
    const TypeDef* before = store.FindType("A");
    store.AddImplicitTypes();
    EXPECT_EQ(TypeNames(), "FLOAT DOUBLE DURATION TIME A ");
    EXPECT_EQ(store.FindType("A"), before);
    EXPECT_EQ(store.FindType("DURATION")->baseType, BaseTypeCode::Duration);
    EXPECT_EQ(store.FindType("TIME"), &store.Types()[3]);
    store.AddImplicitTypes();
    EXPECT_EQ(store.Types().size(), 5U);
}

TEST_F(MemoryStructureStoreTest, ATypeOfAnImplicitNameStays) {
    store.AddType(Named("DOUBLE", BaseTypeCode::Int));
    store.AddImplicitTypes();
    EXPECT_EQ(TypeNames(), "FLOAT DURATION TIME DOUBLE ");
    EXPECT_EQ(store.FindType("DOUBLE")->baseType, BaseTypeCode::Int);
}

TEST_F(MemoryStructureStoreTest, KeepsTheFirstOfANameOrAnId) {
    EXPECT_TRUE(store.AddType(Named("A", BaseTypeCode::Int)));
    EXPECT_FALSE(store.AddType(Named("A", BaseTypeCode::UInt)));
    EXPECT_TRUE(store.AddType(Named("a", BaseTypeCode::UInt)));
    EXPECT_EQ(store.FindType("A")->baseType, BaseTypeCode::Int);
    EXPECT_EQ(store.Types().size(), 2U);
    EXPECT_TRUE(store.AddArea(5, "A"));
    EXPECT_FALSE(store.AddArea(5, "a"));
    EXPECT_EQ(store.FindMemoryArea(5)->typeName, "A");
}

TEST_F(MemoryStructureStoreTest, TakesOverTheItemsOfAType) {
    TypeDef type = Named("S", BaseTypeCode::Structured);
    type.structItems = {{"a", "I", nullptr, 1}};
    type.enumItems = values::EnumItemList({{"on", 1}});
    store.AddType(std::move(type));
    EXPECT_EQ(store.FindType("S")->structItems.size(), 1U);
    EXPECT_NE(store.FindType("S")->enumItems.FindName("on"), nullptr);
}

TEST_F(MemoryStructureStoreTest, ClearingKeepsThePaths) {
    store.SetDefaultPath("D");
    store.SetCurrentPath("C");
    store.AddImplicitTypes();
    store.AddArea(1, "FLOAT");
    store.ResolveReferences();
    store.Clear();
    EXPECT_TRUE(store.Types().empty());
    EXPECT_TRUE(store.Areas().empty());
    EXPECT_EQ(store.FindType("FLOAT"), nullptr);
    EXPECT_EQ(store.TypeOfArea(1), nullptr);
    EXPECT_EQ(store.GetDefaultPath(), "D");
    EXPECT_EQ(store.GetCurrentPath(), "C");
}

class LoadStructFileTest : public MemoryStructureStoreTest {
  protected:
    static std::string OneType(const std::string& name) {
        return "<Definitions><TypeList><Type Name='" + name +
               "' BaseType='UINT' Size='1'/></TypeList>"
               "<MemoryList><Memory ID='1' Type='" +
               name + "'/></MemoryList></Definitions>";
    }

    TemporaryFolder folder;
};

TEST_F(LoadStructFileTest, ReadsTheFileInsteadOfTheDefaultFile) {
    WriteFile("OWN", OneType("Own"));
    WriteFile("DEFAULT", OneType("Default"));
    store.SetDefaultPath("DEFAULT");
    EXPECT_TRUE(store.LoadStructFile("OWN"));
    EXPECT_EQ(TypeNames(), "FLOAT DOUBLE DURATION TIME Own ");
    EXPECT_EQ(store.GetCurrentPath(), "OWN");
    EXPECT_EQ(MemoryStructureStore::StoredSize(store.TypeOfArea(1)), 1U);
}

TEST_F(LoadStructFileTest, FallsBackToTheDefaultFile) {
    WriteFile("DEFAULT", OneType("Default"));
    store.SetDefaultPath("DEFAULT");
    for (const char* path : {"OWN", ""}) {
        store.SetCurrentPath("BEFORE");
        EXPECT_TRUE(store.LoadStructFile(path));
        EXPECT_EQ(TypeNames(), "FLOAT DOUBLE DURATION TIME Default ");
        EXPECT_EQ(store.TypeOfArea(1), Type("Default"));
        EXPECT_EQ(store.GetCurrentPath(), "");
    }
}

TEST_F(LoadStructFileTest, SucceedsWithoutAnyFile) {
    store.SetCurrentPath("BEFORE");
    store.SetDefaultPath("DEFAULT");
    store.AddType(Named("Before", BaseTypeCode::Int));
    store.AddArea(1, "Before");
    EXPECT_TRUE(store.LoadStructFile("OWN"));
    EXPECT_EQ(TypeNames(), "FLOAT DOUBLE DURATION TIME ");
    EXPECT_TRUE(store.Areas().empty());
    EXPECT_EQ(store.GetCurrentPath(), "");
    EXPECT_EQ(MemoryStructureStore::StoredSize(Type("DOUBLE")), 8U);
    EXPECT_EQ(library.calls, 0U);
}

TEST_F(LoadStructFileTest, ABrokenFileDoesNotFallBack) {
    WriteFile("OWN", "<Definitions>");
    WriteFile("DEFAULT", OneType("Default"));
    store.SetDefaultPath("DEFAULT");
    store.SetCurrentPath("BEFORE");
    EXPECT_FALSE(store.LoadStructFile("OWN"));
    EXPECT_EQ(TypeNames(), "FLOAT DOUBLE DURATION TIME ");
    EXPECT_TRUE(store.Areas().empty());
    EXPECT_EQ(store.GetCurrentPath(), "");
    EXPECT_EQ(xml.LastError(), "unexpected end of file");
}

TEST_F(LoadStructFileTest, ABrokenDefaultFileFails) {
    WriteFile("DEFAULT", "");
    store.SetDefaultPath("DEFAULT");
    EXPECT_FALSE(store.LoadStructFile("OWN"));
    EXPECT_EQ(TypeNames(), "FLOAT DOUBLE DURATION TIME ");
    EXPECT_EQ(store.GetCurrentPath(), "");
}

TEST_F(LoadStructFileTest, ReplacesWhatWasLoadedBefore) {
    WriteFile("A", OneType("A"));
    WriteFile("B", OneType("B"));
    EXPECT_TRUE(store.LoadStructFile("A"));
    EXPECT_TRUE(store.LoadStructFile("B"));
    EXPECT_EQ(TypeNames(), "FLOAT DOUBLE DURATION TIME B ");
    EXPECT_EQ(store.TypeOfArea(1), Type("B"));
    // The path to load may be the store's own.
    EXPECT_TRUE(store.LoadStructFile(store.GetCurrentPath()));
    EXPECT_EQ(store.GetCurrentPath(), "B");
    EXPECT_EQ(store.TypeOfArea(1), Type("B"));
}

TEST_F(LoadStructFileTest, SucceedsWhenTheLibraryGivesNoRoot) {
    WriteFile("OWN", OneType("A"));
    library.failingCall = 2;
    EXPECT_TRUE(store.LoadStructFile("OWN"));
    EXPECT_EQ(TypeNames(), "FLOAT DOUBLE DURATION TIME ");
    EXPECT_EQ(store.GetCurrentPath(), "OWN");
}

}  // namespace
}  // namespace orvell::test
