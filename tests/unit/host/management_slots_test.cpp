#include <array>
#include <cstring>

#include "management_fixture.h"

namespace orvell::host {
namespace {

class ManagementSlotsTest : public ManagementTest {
  protected:
    ManagementSlotsTest() { BuildKinds(); }

    static void Set(const char* address, const char* text) {
        management::SetValueFromText(address, text);
    }

    /// What a slot writes into a buffer of `size` bytes, the rest of which must stay untouched.
    static std::string Read(void(ORVELL_CALL* slot)(const char*, char*, uint32_t),
                            const char* address, std::uint32_t size) {
        std::string buffer(40, '\xEE');
        slot(address, buffer.data(), size);
        EXPECT_EQ(buffer.find_first_not_of('\xEE', size), std::string::npos) << address;
        const std::size_t used = buffer.find_last_not_of('\xEE');
        return used == std::string::npos ? "(nothing)" : buffer.substr(0, used + 1);
    }
};

using namespace std::string_literals;

TEST_F(ManagementSlotsTest, NamesAndCommentsAreCutToTheBuffer) {
    Set("PW1", "5");
    List().FindKind("PW")->Find(1)->SetName("Name");
    List().FindKind("PW")->Find(1)->SetComment("Remark");
    EXPECT_EQ(Read(management::GetName, "PW1", 16), "Name\0"s);
    EXPECT_EQ(Read(management::GetName, "PW1", 5), "Name\0"s);
    EXPECT_EQ(Read(management::GetName, "PW1", 4), "Nam\0"s);
    EXPECT_EQ(Read(management::GetName, "PW1", 1), "\0"s);
    EXPECT_EQ(Read(management::GetName, "PW1", 0), "(nothing)");
    EXPECT_EQ(Read(management::GetComment, "PW1", 31), "Remark\0"s);
    EXPECT_EQ(Read(management::GetComment, "PW1", 3), "Re\0"s);
    management::GetName("PW1", nullptr, 16);
    management::GetComment("PW1", nullptr, 16);
}

TEST_F(ManagementSlotsTest, UnknownAddressesHaveAnEmptyNameAndComment) {
    for (const char* address : {"PW1", "XX1", "", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(Read(management::GetName, address, 16), "\0"s);
        EXPECT_EQ(Read(management::GetComment, address, 31), "\0"s);
        EXPECT_EQ(Read(management::GetComment, address, 0), "(nothing)");
    }
}

TEST_F(ManagementSlotsTest, ValuesTravelInForms) {
    std::uint16_t word = 300;
    EXPECT_EQ(management::SetValue("PW1", &word, 2, 2), 1);
    word = 0;
    EXPECT_EQ(management::GetValue("PW1", &word, 2, 2), 1);
    EXPECT_EQ(word, 300);
    EXPECT_EQ(management::GetValue("PW1", &word, 1, 2), 0);
    EXPECT_EQ(management::SetValue("PW1", nullptr, 2, 2), 0);
    EXPECT_EQ(management::GetValue("PW1", nullptr, 2, 2), 0);
    EXPECT_EQ(management::GetValue(nullptr, &word, 2, 2), 0);
    EXPECT_EQ(management::SetValue(nullptr, &word, 2, 2), 0);
    EXPECT_EQ(word, 300);
}

TEST_F(ManagementSlotsTest, TextsSetValuesOfAnyKind) {
    Set("PW1", "-5 bar");
    Set("PT1", "-5 bar");
    Set("XX1", "5");
    Set(nullptr, "5");
    EXPECT_EQ(TextOf("PW1"), "-5");
    EXPECT_EQ(TextOf("PT1"), "-5 bar");
    Set("PT1", nullptr);
    EXPECT_EQ(TextOf("PT1"), "none");
}

TEST_F(ManagementSlotsTest, VectorsOfDoublesNameTheirElements) {
    // A host's packed record may hold them anywhere.
    std::array<char, 1 + 3 * sizeof(double)> memory{};
    const std::array<double, 3> values = {1.5, -2, 0};
    std::memcpy(memory.data() + 1, values.data(), sizeof values);
    const void* unaligned = memory.data() + 1;
    management::SetDoubleVector("PF7", static_cast<const double*>(unaligned), 3);
    EXPECT_EQ(TextOf("PF7"), "1.5");
    EXPECT_EQ(TextOf("PF8"), "-2");
    EXPECT_EQ(TextOf("PF9"), "0");
    EXPECT_EQ(DescriptionOf("PF7"), "|Vektorelement 1");
    EXPECT_EQ(DescriptionOf("PF9"), "|Vektorelement 3");
    management::SetDoubleVector("PF1", values.data(), 1);
    EXPECT_EQ(DescriptionOf("PF1"), "|") << "a single value is no vector";
    management::SetDoubleVector("PF20", values.data(), 0);
    management::SetDoubleVector("PF20", nullptr, 3);
    management::SetDoubleVector(nullptr, values.data(), 3);
    EXPECT_FALSE(Exists("PF20"));
}

TEST_F(ManagementSlotsTest, ACarelessVectorCountDoesNothing) {
    const double value = 1;
    management::SetDoubleVector("PF1", &value, 0xFFFFFFFF);
    EXPECT_FALSE(Exists("PF1"));
}

TEST_F(ManagementSlotsTest, AnUpdateCycleMovesSwapsAndDrops) {
    Set("PW1", "10");
    Set("PW2", "20");
    Set("PW3", "30");
    Set("PL9", "90");
    Set("PW9", "91");
    Set("E0.5", "1");
    List().FindKind("PW")->Find(1)->SetName("first");

    management::BeginUpdate();
    EXPECT_TRUE(List().IsDeclaredOnly());
    management::DeclareParameter("PW1", "PW2");
    management::DeclareParameter("PW2", "PW1");
    management::DeclareParameter("PL9", "PW4");    // another kind has nothing to give
    management::DeclareParameter(nullptr, "PW5");  // new
    management::DeclareParameter("E0.5", "E3");    // bit 24
    EXPECT_EQ(TextOf("PW2"), "10") << "while the cycle runs only declared parameters are seen";
    EXPECT_EQ(TextOf("PW3"), "none");
    Set("PW3", "31");
    Set("PW5", "50");
    management::EndUpdate();

    EXPECT_FALSE(List().IsDeclaredOnly());
    EXPECT_EQ(TextOf("PW1"), "20");
    EXPECT_EQ(TextOf("PW2"), "10");
    EXPECT_EQ(DescriptionOf("PW2"), "first|");
    EXPECT_FALSE(Exists("PW3"));
    EXPECT_TRUE(Exists("PW4"));
    EXPECT_EQ(TextOf("PW4"), "none");
    EXPECT_EQ(TextOf("PW5"), "50");
    EXPECT_EQ(TextOf("E3.0"), "1");
    EXPECT_FALSE(Exists("E0.5"));
    EXPECT_FALSE(Exists("PL9"));
}

TEST_F(ManagementSlotsTest, WhatNoKindKnowsIsNotDeclared) {
    Set("PW1", "10");
    management::BeginUpdate();
    management::DeclareParameter("PW1", "XX1");
    management::DeclareParameter("PW1", nullptr);
    management::DeclareParameter("PW1", "PW0");
    management::EndUpdate();
    EXPECT_FALSE(Exists("PW1"));
    EXPECT_FALSE(Exists("PW0")) << "number 0 is never declared";
}

TEST_F(ManagementSlotsTest, ANewUpdateForgetsTheLastOnesMarks) {
    Set("PW1", "10");
    management::BeginUpdate();
    management::DeclareParameter("PW1", "PW1");
    management::EndUpdate();
    EXPECT_EQ(TextOf("PW1"), "10");
    management::BeginUpdate();
    EXPECT_EQ(TextOf("PW1"), "none");
    management::EndUpdate();
    EXPECT_FALSE(Exists("PW1"));
}

TEST_F(ManagementSlotsTest, ClearingRemovesParametersAndProjectName) {
    Set("PW1", "10");
    List().SetProjectName("plant");
    List().SetDeclaredOnly(true);
    management::ClearList();
    EXPECT_FALSE(Exists("PW1"));
    EXPECT_EQ(List().ProjectName(), "");
    EXPECT_FALSE(List().IsDeclaredOnly());
    EXPECT_EQ(List().KindCount(), 15U);
}

// ---- call tokens -------------------------------------------------------------------------------

/// Uses up a token.
void Repeat(std::uint32_t token) {
    management::SetCallToken(token);
    EXPECT_TRUE(TheModule().callTokens.Admit());
}

TEST_F(ManagementSlotsTest, ARepeatedClearEndsTheUpdateModeOnly) {
    Set("PW1", "10");
    List().SetDeclaredOnly(true);
    Repeat(5);
    management::ClearList();
    EXPECT_TRUE(Exists("PW1"));
    EXPECT_FALSE(List().IsDeclaredOnly());
    management::SetCallToken(6);
    management::ClearList();
    EXPECT_FALSE(Exists("PW1"));
}

TEST_F(ManagementSlotsTest, ARepeatedBeginKeepsTheMarks) {
    management::BeginUpdate();
    management::DeclareParameter("", "PW1");
    List().SetDeclaredOnly(false);
    Repeat(5);
    management::BeginUpdate();
    EXPECT_TRUE(List().IsDeclaredOnly());
    management::SetCallToken(6);
    management::EndUpdate();
    EXPECT_TRUE(Exists("PW1"));
}

TEST_F(ManagementSlotsTest, ARepeatedEndPurgesNothing) {
    Set("PW1", "10");
    management::BeginUpdate();
    Repeat(5);
    management::EndUpdate();
    EXPECT_TRUE(Exists("PW1"));
    EXPECT_FALSE(List().IsDeclaredOnly());
}

TEST_F(ManagementSlotsTest, UnguardedSlotsAlwaysRun) {
    Repeat(5);
    Set("PW1", "10");
    management::DeclareParameter("", "PW2");
    EXPECT_EQ(TextOf("PW1"), "10");
    EXPECT_TRUE(Exists("PW2"));
    std::uint16_t word = 3;
    EXPECT_EQ(management::SetValue("PW1", &word, 2, 2), 1);
    EXPECT_EQ(management::SetValue("PW1", &word, 2, 2), 1);
    const double value = 2;
    management::SetDoubleVector("PF1", &value, 1);
    EXPECT_EQ(TextOf("PF1"), "2");
}

TEST_F(ManagementSlotsTest, LoadingRunsOncePerToken) {
    management::SetCallToken(5);
    management::LoadList(nullptr);
    Set("PW1", "10");
    management::LoadList(nullptr);
    EXPECT_TRUE(Exists("PW1"));
    management::SetCallToken(0);
    management::LoadList(nullptr);
    EXPECT_FALSE(Exists("PW1"));
    Set("PW1", "10");
    management::LoadList(nullptr);
    EXPECT_FALSE(Exists("PW1"));
}

// ---- hand-over ---------------------------------------------------------------------------------

TEST_F(ManagementSlotsTest, ATableOfAnySizeReceivesItsBytesAndNoMore) {
    std::array<std::uint32_t, 24> whole{};
    whole[0] = sizeof(ManagementTable);
    ASSERT_EQ(GetParaMGMTFunc(whole.data()), 1);
    const auto* wholeByte = reinterpret_cast<const std::uint8_t*>(whole.data());
    for (std::uint32_t size = 1; size < sizeof(ManagementTable); ++size) {
        std::array<std::uint32_t, 24> table{};
        table.fill(0xEEEEEEEE);
        table[0] = size;
        EXPECT_EQ(GetParaMGMTFunc(table.data()), 1) << size;
        EXPECT_EQ(table[0], size);
        const auto* byte = reinterpret_cast<const std::uint8_t*>(table.data());
        for (std::uint32_t i = 4; i < sizeof table; ++i) {
            EXPECT_EQ(byte[i], i < size ? wholeByte[i] : 0xEE) << size << ' ' << i;
        }
    }
}

TEST_F(ManagementSlotsTest, TheTableIsHandedOverAsFarAsItFits) {
    EXPECT_EQ(GetParaMGMTFunc(nullptr), 0);
    std::array<std::uint32_t, 24> table{};
    EXPECT_EQ(GetParaMGMTFunc(table.data()), 0);
    EXPECT_EQ(table, (std::array<std::uint32_t, 24>{}));

    table.fill(0xEEEEEEEE);
    table[0] = 8;
    EXPECT_EQ(GetParaMGMTFunc(table.data()), 1);
    EXPECT_EQ(table[0], 8U);
    EXPECT_EQ(table[1], reinterpret_cast<std::uintptr_t>(&management::LoadList));
    EXPECT_EQ(table[2], 0xEEEEEEEE);

    table.fill(0xEEEEEEEE);
    table[0] = 80;
    EXPECT_EQ(GetParaMGMTFunc(table.data()), 1);
    EXPECT_EQ(table[0], 80U);
    EXPECT_EQ(table[17], reinterpret_cast<std::uintptr_t>(&management::SetCallToken));
    EXPECT_EQ(table[18], 0U);
    EXPECT_EQ(table[19], 0U);
    EXPECT_EQ(table[20], 0xEEEEEEEE);
}

TEST_F(ManagementSlotsTest, AHandOverForgetsTheTokens) {
    Repeat(5);
    std::uint32_t refused = 0;
    EXPECT_EQ(GetParaMGMTFunc(&refused), 0);
    EXPECT_FALSE(TheModule().callTokens.Admit()) << "nothing was handed over";
    ManagementTable table{};
    table.size = sizeof(table);
    EXPECT_EQ(GetParaMGMTFunc(&table), 1);
    EXPECT_TRUE(TheModule().callTokens.Admit());
    EXPECT_TRUE(TheModule().callTokens.Admit());
    table.SetCallToken(5);
    EXPECT_TRUE(TheModule().callTokens.Admit());
}

TEST_F(ManagementSlotsTest, EverySlotIsAtItsPlace) {
    ManagementTable table{};
    table.size = sizeof(table);
    ASSERT_EQ(GetParaMGMTFunc(&table), 1);
    const ManagementTable own = MakeManagementTable();
    EXPECT_EQ(std::memcmp(&table, &own, sizeof table), 0);
    EXPECT_EQ(table.LoadList, &management::LoadList);
    EXPECT_EQ(table.SaveList, &management::SaveList);
    EXPECT_EQ(table.ClearList, &management::ClearList);
    EXPECT_EQ(table.BeginUpdate, &management::BeginUpdate);
    EXPECT_EQ(table.DeclareParameter, &management::DeclareParameter);
    EXPECT_EQ(table.EndUpdate, &management::EndUpdate);
    EXPECT_EQ(table.SetDoubleVector, &management::SetDoubleVector);
    EXPECT_EQ(table.SetValueFromText, &management::SetValueFromText);
    EXPECT_EQ(table.GetName, &management::GetName);
    EXPECT_EQ(table.GetComment, &management::GetComment);
    EXPECT_EQ(table.ImportIntoList, &management::ImportIntoList);
    EXPECT_EQ(table.ExportAndOpenList, &management::ExportAndOpenList);
    EXPECT_EQ(table.ImportNewList, &management::ImportNewList);
    EXPECT_EQ(table.ExportList, &management::ExportList);
    EXPECT_EQ(table.GetValue, &management::GetValue);
    EXPECT_EQ(table.SetValue, &management::SetValue);
    EXPECT_EQ(table.SetCallToken, &management::SetCallToken);
}

TEST_F(ManagementTest, BeforeTheFirstLoadNoAddressIsKnown) {
    std::uint16_t word = 3;
    EXPECT_EQ(management::SetValue("PW1", &word, 2, 2), 0);
    EXPECT_EQ(management::GetValue("PW1", &word, 2, 2), 0);
    EXPECT_EQ(word, 3);
    management::SetValueFromText("PW1", "5");
    management::DeclareParameter("PW1", "PW1");
    management::BeginUpdate();
    management::EndUpdate();
    management::ClearList();
    EXPECT_EQ(List().KindCount(), 0U);
}

}  // namespace
}  // namespace orvell::host
