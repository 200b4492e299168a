#include "memstruct/config_files.h"
#include "memstruct/definition_merge.h"
#include "memstruct_fixture.h"
#include "temporary_folder.h"

namespace orvell::test {
namespace {

using memstruct::ConfigFiles;
using memstruct::TypeDef;

constexpr const char* kLoadedDefinitions = R"(<Definitions>
    <TypeList><Type Name="S" BaseType="Structured"><Item Name="a" Type="E" Dimension="2"/></Type>
    <Type Name="E" BaseType="Enumerated" Size="1"><Item Value="1" Name="one"/></Type>
    <Type Name="D" BaseType="DATE" Format="MM/DD/YYYY"/></TypeList>
    <MemoryList><Memory ID="1" Type="S"/></MemoryList></Definitions>)";

constexpr const char* kFurtherDefinitions = R"(<Definitions>
    <TypeList><Type Name="S" BaseType="INT"/><Type Name="T" BaseType="Structured" Comment="c">
    <Item Name="a" Type="S"/></Type></TypeList>
    <MemoryList><Memory ID="2" Type="T"/></MemoryList></Definitions>)";

enum class Failure { Once, ForGood, ByException };

/// Lets every single call of the library fail, one after the other, in each way.
class LibraryFailureTest : public MemstructTest, public testing::WithParamInterface<Failure> {
  protected:
    LibraryFailureTest() {
        std::filesystem::create_directory("OUT");
        library.staysBroken = GetParam() == Failure::ForGood;
        library.throws = GetParam() == Failure::ByException;
    }

    template <typename Operation>
    void FailAtEachCall(Operation operation) {
        for (std::uint64_t n = 1;; ++n) {
            library.calls = 0;
            library.failingCall = n;
            operation();
            ASSERT_EQ(library.Complaints(), "") << "after failure of call " << n;
            CheckReferences();
            if (library.calls < n) {
                EXPECT_GT(n, 10U);
                library.failingCall = 0;
                return;
            }
        }
    }

    /// Whatever could be read hangs together.
    void CheckReferences() {
        for (const TypeDef& type : store.Types()) {
            EXPECT_EQ(store.FindType(type.name), &type);
            for (const memstruct::StructItem& item : type.structItems) {
                EXPECT_EQ(item.type, store.FindType(item.typeName));
            }
        }
        for (const memstruct::MemoryArea& area : store.Areas()) {
            EXPECT_EQ(area.type, store.FindType(area.typeName));
        }
    }

    TemporaryFolder folder;
    ConfigFiles files{store, xml};
};

TEST_P(LibraryFailureTest, Loading) {
    WriteFile("P.STDMEMXML", kLoadedDefinitions);
    FailAtEachCall([this] { static_cast<void>(files.Load("P")); });
    EXPECT_EQ(store.Types().size(), 7U);
    EXPECT_EQ(store.TypeOfArea(1), Type("S"));
}

TEST_P(LibraryFailureTest, MergingIntoAProject) {
    WriteFile("OUT\\P.STDMEMXML", kFurtherDefinitions);
    FailAtEachCall([this] {
        WriteFile("P.STDMEMXML", kLoadedDefinitions);
        files.Merge("P", "OUT");
    });
    EXPECT_EQ(store.Types().size(), 8U);
    EXPECT_EQ(store.TypeOfArea(2), Type("T"));
}

TEST_P(LibraryFailureTest, MergingIntoANewProject) {
    WriteFile("OUT\\P.STDMEMXML", kFurtherDefinitions);
    FailAtEachCall([this] {
        std::filesystem::remove("P.STDMEMXML");
        files.Merge("P", "OUT");
    });
    EXPECT_EQ(store.Types().size(), 6U);
    EXPECT_EQ(store.GetCurrentPath(), "P.STDMEMXML");
}

constexpr const char* kFailureNames[] = {"Once", "ForGood", "ByException"};

INSTANTIATE_TEST_SUITE_P(Failure, LibraryFailureTest,
                         testing::Values(Failure::Once, Failure::ForGood, Failure::ByException),
                         [](const auto& failure) {
                             return std::string(kFailureNames[static_cast<int>(failure.param)]);
                         });

}  // namespace
}  // namespace orvell::test
