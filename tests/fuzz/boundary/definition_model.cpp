#include "fuzz/boundary/definition_model.h"

#include <array>

namespace orvell::fuzz {
namespace {

constexpr ModelLeafType kWordType = {LeafForm::Signed, 2, "16", 2};
constexpr ModelLeafType kTextType = {LeafForm::Text, 4, "Text", 5};
constexpr ModelLeafType kModeType = {LeafForm::Enumerated, 1, "8", 1};
constexpr ModelLeafType kFloatType = {LeafForm::Float, 4, "Float", 4};
constexpr ModelLeafType kLongType = {LeafForm::Unsigned, 4, "32", 3};
constexpr ModelLeafType kHugeType = {LeafForm::Signed, 8, "64", 8};
constexpr ModelLeafType kDoubleType = {LeafForm::Double, 8, "Double", 9};
constexpr ModelLeafType kByteType = {LeafForm::Unsigned, 1, "8", 7};
constexpr ModelLeafType kDateType = {LeafForm::Date, 8, "Double", 10};
constexpr ModelLeafType kDurationType = {LeafForm::Duration, 4, "32", 6};
constexpr ModelLeafType kTimeType = {LeafForm::Time, 4, "32", 6};

constexpr std::array kWord = {ModelLeaf{"", 0, &kWordType}};
constexpr std::array kText = {ModelLeaf{"", 0, &kTextType}};
constexpr std::array kMode = {ModelLeaf{"", 0, &kModeType}};
constexpr std::array kFloat = {ModelLeaf{"", 0, &kFloatType}};
constexpr std::array kLong = {ModelLeaf{"", 0, &kLongType}};
constexpr std::array kHuge = {ModelLeaf{"", 0, &kHugeType}};
constexpr std::array kDouble = {ModelLeaf{"", 0, &kDoubleType}};
constexpr std::array kByte = {ModelLeaf{"", 0, &kByteType}};
constexpr std::array kDate = {ModelLeaf{"", 0, &kDateType}};
constexpr std::array kDuration = {ModelLeaf{"", 0, &kDurationType}};
constexpr std::array kTime = {ModelLeaf{"", 0, &kTimeType}};

constexpr std::array kPoint = {ModelLeaf{"x", 0, &kWordType}, ModelLeaf{"y[0]", 2, &kWordType},
                               ModelLeaf{"y[1]", 4, &kWordType}};
constexpr std::array kAll = {ModelLeaf{"n.x", 0, &kWordType}, ModelLeaf{"n.y[0]", 2, &kWordType},
                             ModelLeaf{"n.y[1]", 4, &kWordType}, ModelLeaf{"f", 6, &kFloatType},
                             ModelLeaf{"m", 10, &kModeType}};
constexpr std::array kWide = {ModelLeaf{"l", 0, &kLongType},     ModelLeaf{"h", 4, &kHugeType},
                              ModelLeaf{"d", 12, &kDoubleType},  ModelLeaf{"b", 20, &kByteType},
                              ModelLeaf{"t", 21, &kTextType},    ModelLeaf{"o", 25, &kDateType},
                              ModelLeaf{"c", 33, &kDurationType}};

constexpr std::array kPointElements = {ModelElement{"x", "Word", 1, 0, 1},
                                       ModelElement{"y", "Word", 2, 2, 1}};
constexpr std::array kLoopElements = {ModelElement{"self", "Loop", 1, 0, 4}};
constexpr std::array kAllElements = {
    ModelElement{"n", "Point", 1, 0, 2}, ModelElement{"lost", "Nothing", 1, 6, 0},
    ModelElement{"f", "FLOAT", 1, 6, 9}, ModelElement{"m", "Mode", 1, 10, 6}};
constexpr std::array kWideElements = {
    ModelElement{"l", "Long", 1, 0, 11},     ModelElement{"h", "Huge", 1, 4, 12},
    ModelElement{"d", "DOUBLE", 1, 12, 13},  ModelElement{"b", "Byte", 1, 20, 14},
    ModelElement{"t", "Text", 1, 21, 3},     ModelElement{"o", "Date", 1, 25, 15},
    ModelElement{"c", "DURATION", 1, 33, 16}};

constexpr std::array kModes = {ModelEnumerator{"On", 1}, ModelEnumerator{"Off", 200}};

constexpr std::array kAreas = {
    ModelArea{1, 1, "Word", 2, "INT", 700, true, kWord, {}, {}},
    ModelArea{2, 3, "Point", 6, nullptr, 2, true, kPoint, kPointElements, {}},
    ModelArea{3, 1, "Text", 4, "STRING", 704, true, kText, {}, {}},
    ModelArea{4, 3, "Loop", 0, nullptr, 1, false, {}, kLoopElements, {}},
    ModelArea{6, 2, "Mode", 1, nullptr, 2, true, kMode, {}, kModes},
    ModelArea{7, 3, "All", 11, nullptr, 4, true, kAll, kAllElements, {}},
    ModelArea{8, 3, "Empty", 0, nullptr, 0, true, {}, {}, {}},
    ModelArea{9, 1, "FLOAT", 4, "FLOAT", 702, true, kFloat, {}, {}},
    ModelArea{10, 3, "Wide", 37, nullptr, 7, true, kWide, kWideElements, {}},
    ModelArea{11, 1, "Long", 4, "UINT", 701, true, kLong, {}, {}},
    ModelArea{12, 1, "Huge", 8, "INT", 700, true, kHuge, {}, {}},
    ModelArea{13, 1, "DOUBLE", 8, "DOUBLE", 703, true, kDouble, {}, {}},
    ModelArea{14, 1, "Byte", 1, "UINT", 701, true, kByte, {}, {}},
    ModelArea{15, 1, "Date", 8, "OLE-DATE+TIME", 709, true, kDate, {}, {}},
    ModelArea{16, 1, "DURATION", 4, "DURATION", 705, true, kDuration, {}, {}},
    ModelArea{17, 1, "TIME", 4, "TIME", 706, true, kTime, {}, {}},
};

}  // namespace

const ModelArea kHugeLevel = {20, 1, "Level", 8, "INT", 700, true, kHuge, {}, {}};
const ModelArea kLongLevel = {20, 1, "Level", 4, "UINT", 701, true, kLong, {}, {}};
const ModelArea kTank = {20, 1, "Tank", 2, "INT", 700, true, kWord, {}, {}};

std::span<const ModelArea> AllAreas() {
    return kAreas;
}

const char* const kDefinitions = R"(<Definitions><TypeList>
<Type Name="Point" BaseType="Structured"><Item Name="x" Type="Word"/>
  <Item Name="y" Type="Word" Dimension="2"/></Type>
<Type Name="Word" BaseType="INT" Size="2"/>
<Type Name="Text" BaseType="STRING" Size="4"/>
<Type Name="Mode" BaseType="Enumerated" Size="1"><Item Value="200" Name="Off"/>
  <Item Value="1" Name="On"/></Type>
<Type Name="Loop" BaseType="Structured"><Item Name="self" Type="Loop"/></Type>
<Type Name="All" BaseType="Structured"><Item Name="n" Type="Point"/>
  <Item Name="lost" Type="Nothing"/><Item Name="f" Type="FLOAT"/><Item Name="m" Type="Mode"/></Type>
<Type Name="Empty" BaseType="Structured"/>
<Type Name="Long" BaseType="UINT" Size="4"/><Type Name="Huge" BaseType="INT" Size="8"/>
<Type Name="Byte" BaseType="UINT" Size="1"/><Type Name="Date" BaseType="OLE-DATE+TIME"/>
<Type Name="Wide" BaseType="Structured"><Item Name="l" Type="Long"/><Item Name="h" Type="Huge"/>
  <Item Name="d" Type="DOUBLE"/><Item Name="b" Type="Byte"/><Item Name="t" Type="Text"/>
  <Item Name="o" Type="Date"/><Item Name="c" Type="DURATION"/></Type>
</TypeList><MemoryList>
<Memory ID="1" Type="Word"/><Memory ID="2" Type="Point"/><Memory ID="3" Type="Text"/>
<Memory ID="4" Type="Loop"/><Memory ID="5" Type="Nothing"/><Memory ID="6" Type="Mode"/>
<Memory ID="7" Type="All"/><Memory ID="8" Type="Empty"/><Memory ID="9" Type="FLOAT"/>
<Memory ID="10" Type="Wide"/><Memory ID="11" Type="Long"/><Memory ID="12" Type="Huge"/>
<Memory ID="13" Type="DOUBLE"/><Memory ID="14" Type="Byte"/><Memory ID="15" Type="Date"/>
<Memory ID="16" Type="DURATION"/><Memory ID="17" Type="TIME"/>
</MemoryList></Definitions>)";

const ModelArea* FindArea(std::int32_t identifier) {
    for (const ModelArea& area : kAreas) {
        if (area.identifier == identifier) {
            return &area;
        }
    }
    return nullptr;
}

std::int32_t ChooseArea(Program& program) {
    constexpr std::array<std::int32_t, 23> kIdentifiers = {
        1, 2, 3, 4, 5, 6, 7, 8, 9, 99, 0, -1, 10, 11, 12, 13, 14, 15, 16, 17, 20, 21, 22};
    return program.Pick(kIdentifiers);
}

std::vector<PlacedLeaf> LeavesOf(const ModelArea& area, std::uint32_t count) {
    std::vector<PlacedLeaf> leaves;
    for (std::uint32_t element = 0; !area.leaves.empty() && element < Elements(count); ++element) {
        const std::string index = count < 2 ? "" : '[' + std::to_string(element) + ']';
        for (const ModelLeaf& leaf : area.leaves) {
            const std::string path = leaf.path;
            leaves.push_back({index.empty() || path.empty() ? index + path : index + '.' + path,
                              std::size_t{area.size} * element + leaf.offset, leaf.type});
        }
    }
    return leaves;
}

}  // namespace orvell::fuzz
