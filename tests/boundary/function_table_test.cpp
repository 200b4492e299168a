#include <gtest/gtest.h>

#include <vector>

#include "module_host.h"

namespace orvell::test {
namespace {

constexpr std::uint32_t kSlotCount = 25;

class FunctionTableTest : public testing::Test {
  protected:
    FunctionTableTest() {
        stage.SetUpEverything();
        module = std::make_unique<LoadedModule>(stage);
    }

    /// The words of a host's table of `size` bytes after the hand-over; the memory ends with it.
    std::vector<std::uint32_t> HandOver(std::uint32_t size) {
        const GuardedBytes table(std::max<std::uint32_t>(size, 4));
        std::memcpy(table.Data(), &size, sizeof(size));
        EXPECT_EQ(module->Export<decltype(&GetStdParaFctns)>("GetStdParaFctns")(table.Data()), 1);
        std::vector<std::uint32_t> words(std::max<std::uint32_t>(size, 4) / 4);
        std::memcpy(words.data(), table.Data(), words.size() * 4);
        return words;
    }

    Stage stage;
    std::unique_ptr<LoadedModule> module;
};

TEST_F(FunctionTableTest, NullTableIsRefused) {
    EXPECT_EQ(module->Export<decltype(&GetStdParaFctns)>("GetStdParaFctns")(nullptr), 0);
}

TEST_F(FunctionTableTest, AFullTableHasAllSlots) {
    const std::vector<std::uint32_t> words = HandOver(104);
    EXPECT_EQ(words[0], 104U);
    for (std::uint32_t slot = 1; slot <= kSlotCount; ++slot) {
        EXPECT_NE(words[slot], 0U) << slot;
    }
}

TEST_F(FunctionTableTest, AShortTableGetsTheLeadingSlots) {
    const std::vector<std::uint32_t> full = HandOver(104);
    for (std::uint32_t size = 4; size < 104; size += 4) {
        const std::vector<std::uint32_t> words = HandOver(size);
        EXPECT_EQ(words[0], size);
        for (std::uint32_t slot = 1; slot < words.size(); ++slot) {
            EXPECT_EQ(words[slot], full[slot]) << size << " bytes, slot " << slot;
        }
    }
}

TEST_F(FunctionTableTest, ALongTableIsZeroedBehindTheSlots) {
    const std::vector<std::uint32_t> words = HandOver(128);
    EXPECT_EQ(words[0], 128U);
    EXPECT_NE(words[kSlotCount], 0U);
    for (std::size_t word = kSlotCount + 1; word < words.size(); ++word) {
        EXPECT_EQ(words[word], 0U) << word;
    }
}

TEST_F(FunctionTableTest, SizesBelowAWordStayAsTheyAre) {
    for (std::uint32_t size = 0; size < 4; ++size) {
        EXPECT_EQ(HandOver(size)[0], size);
    }
}

TEST_F(FunctionTableTest, EveryHandOverGivesTheSameTable) {
    EXPECT_EQ(HandOver(104), HandOver(104));
}

TEST_F(FunctionTableTest, CallbackTablesOfAnySizeAreTaken) {
    const auto install = module->Export<decltype(&SetZelkorExportFctns)>("SetZelkorExportFctns");
    EXPECT_EQ(install(nullptr), 1);
    for (std::uint32_t size = 4; size <= 32; ++size) {
        const GuardedBytes table(size);
        std::memcpy(table.Data(), &size, sizeof(size));
        const std::vector<unsigned char> before(table.Data(), table.Data() + size);
        EXPECT_EQ(install(reinterpret_cast<HostExportTable*>(table.Data())), 1);
        EXPECT_EQ(before, std::vector<unsigned char>(table.Data(), table.Data() + size)) << size;
    }
    EXPECT_EQ(install(nullptr), 1);
}

}  // namespace
}  // namespace orvell::test
