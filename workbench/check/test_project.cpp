#include "check/test_project.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace workbench::check {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFirstDefinitions = R"(<Definitions>
  <TypeList>
    <Type Name="Word" BaseType="UINT" Size="2"/>
    <Type Name="Point" BaseType="Structured">
      <Item Name="x" Type="Word"/>
      <Item Name="y" Type="Word" Dimension="2"/>
    </Type>
    <Type Name="Label" BaseType="STRING" Size="8"/>
    <Type Name="Mode" BaseType="Enumerated" Size="1">
      <Item Value="1" Name="On"/>
      <Item Value="0" Name="Off"/>
      <Item Value="255" Name="Fault"/>
    </Type>
    <Type Name="I1" BaseType="INT" Size="1"/>
    <Type Name="I2" BaseType="INT" Size="2"/>
    <Type Name="I4" BaseType="INT" Size="4"/>
    <Type Name="I8" BaseType="INT" Size="8"/>
    <Type Name="U1" BaseType="UINT" Size="1"/>
    <Type Name="U4" BaseType="UINT" Size="4"/>
    <Type Name="U8" BaseType="UINT" Size="8"/>
    <Type Name="Day" BaseType="DATE" Format="DD.MM.YYYY"/>
    <Type Name="Moment" BaseType="DATE+TIME" Format="MM/DD/YYYY"/>
    <Type Name="Stamp" BaseType="OLE-DATE+TIME" Format="DD.MM.YYYY"/>
    <Type Name="All" BaseType="Structured">
      <Item Name="i1" Type="I1"/>
      <Item Name="i2" Type="I2"/>
      <Item Name="i4" Type="I4"/>
      <Item Name="i8" Type="I8"/>
      <Item Name="u1" Type="U1"/>
      <Item Name="u2" Type="Word"/>
      <Item Name="u4" Type="U4"/>
      <Item Name="u8" Type="U8"/>
      <Item Name="f" Type="FLOAT"/>
      <Item Name="d" Type="DOUBLE"/>
      <Item Name="s" Type="Label"/>
      <Item Name="du" Type="DURATION"/>
      <Item Name="ti" Type="TIME"/>
      <Item Name="da" Type="Day"/>
      <Item Name="dt" Type="Moment"/>
      <Item Name="o" Type="Stamp"/>
      <Item Name="m" Type="Mode"/>
    </Type>
    <Type Name="Partly" BaseType="Structured">
      <Item Name="known" Type="Word"/>
      <Item Name="lost" Type="Nothing"/>
    </Type>
    <Type Name="Loop" BaseType="Structured">
      <Item Name="self" Type="Loop"/>
    </Type>
    <Type Name="Huge" BaseType="Structured">
      <Item Name="words" Type="Word" Dimension="2147483647"/>
    </Type>
  </TypeList>
  <MemoryList>
    <Memory ID="1" Type="Word"/>
    <Memory ID="2" Type="Point"/>
    <Memory ID="3" Type="Label"/>
    <Memory ID="4" Type="Mode"/>
    <Memory ID="5" Type="All"/>
    <Memory ID="6" Type="Partly"/>
    <Memory ID="7" Type="Loop"/>
    <Memory ID="8" Type="Nothing"/>
    <Memory ID="9" Type="Huge"/>
    <Memory ID="4294967294" Type="Word"/>
  </MemoryList>
</Definitions>
)";

constexpr std::string_view kSecondDefinitions = R"(<Definitions>
  <TypeList><Type Name="Word" BaseType="UINT" Size="2"/></TypeList>
  <MemoryList><Memory ID="11" Type="Word"/></MemoryList>
</Definitions>
)";

constexpr std::string_view kDeliveredDefinitions = R"(<Definitions>
  <TypeList><Type Name="Word" BaseType="UINT" Size="2"/></TypeList>
  <MemoryList><Memory ID="12" Type="Word"/></MemoryList>
</Definitions>
)";

// Kinds of a raw value.
constexpr std::uint32_t kEnumeratedByte = 1;
constexpr std::uint32_t kWord = 2;
constexpr std::uint32_t kLong = 3;
constexpr std::uint32_t kFloat = 4;
constexpr std::uint32_t kText = 5;
constexpr std::uint32_t kTime = 6;
constexpr std::uint32_t kIntegerByte = 7;
constexpr std::uint32_t kQword = 8;
constexpr std::uint32_t kDouble = 9;
constexpr std::uint32_t kOleDate = 10;

constexpr LeafModel kWordLeaves[] = {{"", 0, 2, Carrier::Word, kWord}};
constexpr LeafModel kPointLeaves[] = {{"x", 0, 2, Carrier::Word, kWord},
                                      {"y[0]", 2, 2, Carrier::Word, kWord},
                                      {"y[1]", 4, 2, Carrier::Word, kWord}};
constexpr LeafModel kLabelLeaves[] = {{"", 0, 8, Carrier::Text, kText}};
constexpr LeafModel kModeLeaves[] = {{"", 0, 1, Carrier::Byte, kEnumeratedByte}};
constexpr LeafModel kPartlyLeaves[] = {{"known", 0, 2, Carrier::Word, kWord}};
constexpr LeafModel kAllLeaves[] = {
    {"i1", 0, 1, Carrier::Byte, kIntegerByte},   {"i2", 1, 2, Carrier::Word, kWord},
    {"i4", 3, 4, Carrier::Long, kLong},          {"i8", 7, 8, Carrier::Qword, kQword},
    {"u1", 15, 1, Carrier::Byte, kIntegerByte},  {"u2", 16, 2, Carrier::Word, kWord},
    {"u4", 18, 4, Carrier::Long, kLong},         {"u8", 22, 8, Carrier::Qword, kQword},
    {"f", 30, 4, Carrier::Float, kFloat},        {"d", 34, 8, Carrier::Double, kDouble},
    {"s", 42, 8, Carrier::Text, kText},          {"du", 50, 4, Carrier::Long, kTime},
    {"ti", 54, 4, Carrier::Long, kTime},         {"da", 58, 4, Carrier::Long, kTime},
    {"dt", 62, 4, Carrier::Long, kTime},         {"o", 66, 8, Carrier::Double, kOleDate},
    {"m", 74, 1, Carrier::Byte, kEnumeratedByte}};

constexpr std::uint32_t kBasic = 1;
constexpr std::uint32_t kEnumerated = 2;
constexpr std::uint32_t kStructured = 3;

constexpr AreaModel kAreas[] = {
    {kWordArea, "Word", kBasic, 2, kWordLeaves},
    {kPointArea, "Point", kStructured, 6, kPointLeaves},
    {kLabelArea, "Label", kBasic, 8, kLabelLeaves},
    {kModeArea, "Mode", kEnumerated, 1, kModeLeaves},
    {kAllArea, "All", kStructured, 75, kAllLeaves},
    {kPartlyArea, "Partly", kStructured, 2, kPartlyLeaves},
    {kFarArea, "Word", kBasic, 2, kWordLeaves},
};

std::string NewFolder() {
    std::array<char, MAX_PATH + 1> temporary{};
    GetTempPathA(static_cast<DWORD>(temporary.size()), temporary.data());
    std::string folder = std::string(temporary.data()) + "orvell-check-" +
                         std::to_string(GetCurrentProcessId()) + "\\";
    fs::create_directories(folder);
    return folder;
}

}  // namespace

std::span<const AreaModel> Areas() {
    return kAreas;
}

bool IsArea(std::int32_t id) {
    return std::ranges::find(kAreas, id, &AreaModel::id) != std::end(kAreas) || id == kLoopArea ||
           id == kLostArea || id == kHugeArea;
}

TestProject::TestProject() : folder_(NewFolder()) {
    Write("FIRST.PRJ", "");
    Write("SECOND.PRJ", "");
    Write("FIRST.STDMEMXML", kFirstDefinitions);
    Write("SECOND.STDMEMXML", kSecondDefinitions);
    fs::create_directories(Path("DELIVERY"));
    fs::create_directories(Path("TARGET"));
    Write("DELIVERY\\FIRST.STDMEMXML", kDeliveredDefinitions);
}

TestProject::~TestProject() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

std::string TestProject::Path(std::string_view name) const {
    return folder_ + std::string(name);
}

void TestProject::Write(std::string_view name, std::string_view content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
}

std::string TestProject::Read(std::string_view name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void TestProject::Remove(std::string_view name) const {
    std::error_code ignored;
    fs::remove(Path(name), ignored);
}

}  // namespace workbench::check
