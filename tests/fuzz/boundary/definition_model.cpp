#include "definition_model.h"

#include <array>

namespace orvell::fuzz {
namespace {

constexpr std::array kWord = {ModelLeaf{"", 0, 2, "16"}};
constexpr std::array kText = {ModelLeaf{"", 0, 4, "Text"}};
constexpr std::array kMode = {ModelLeaf{"", 0, 1, "8"}};
constexpr std::array kPoint = {ModelLeaf{"x", 0, 2, "16"}, ModelLeaf{"y[0]", 2, 2, "16"},
                               ModelLeaf{"y[1]", 4, 2, "16"}};
constexpr std::array kAll = {ModelLeaf{"n.x", 0, 2, "16"}, ModelLeaf{"n.y[0]", 2, 2, "16"},
                             ModelLeaf{"n.y[1]", 4, 2, "16"}, ModelLeaf{"f", 6, 4, "Float"},
                             ModelLeaf{"m", 10, 1, "8"}};

constexpr std::array kPointElements = {ModelElement{"x", "Word", 1, 0, 1},
                                       ModelElement{"y", "Word", 2, 2, 1}};
constexpr std::array kLoopElements = {ModelElement{"self", "Loop", 1, 0, 4}};
constexpr std::array kAllElements = {
    ModelElement{"n", "Point", 1, 0, 2}, ModelElement{"lost", "Nothing", 1, 6, 0},
    ModelElement{"f", "FLOAT", 1, 6, 9}, ModelElement{"m", "Mode", 1, 10, 6}};

constexpr std::array kModes = {ModelEnumerator{"On", 1}, ModelEnumerator{"Off", 200}};

constexpr std::array kFloat = {ModelLeaf{"", 0, 4, "Float"}};

constexpr std::array kAreas = {
    ModelArea{1, 1, "Word", 2, "INT", 700, true, kWord, {}, {}},
    ModelArea{2, 3, "Point", 6, nullptr, 2, true, kPoint, kPointElements, {}},
    ModelArea{3, 1, "Text", 4, "STRING", 704, true, kText, {}, {}},
    ModelArea{4, 3, "Loop", 0, nullptr, 1, false, {}, kLoopElements, {}},
    ModelArea{6, 2, "Mode", 1, nullptr, 2, true, kMode, {}, kModes},
    ModelArea{7, 3, "All", 11, nullptr, 4, true, kAll, kAllElements, {}},
    ModelArea{8, 3, "Empty", 0, nullptr, 0, true, {}, {}, {}},
    ModelArea{9, 1, "FLOAT", 4, "FLOAT", 702, true, kFloat, {}, {}},
};

}  // namespace

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
</TypeList><MemoryList>
<Memory ID="1" Type="Word"/><Memory ID="2" Type="Point"/><Memory ID="3" Type="Text"/>
<Memory ID="4" Type="Loop"/><Memory ID="5" Type="Nothing"/><Memory ID="6" Type="Mode"/>
<Memory ID="7" Type="All"/><Memory ID="8" Type="Empty"/><Memory ID="9" Type="FLOAT"/>
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
    constexpr std::array<std::int32_t, 12> kIdentifiers = {1, 2, 3, 4, 5, 6, 7, 8, 9, 99, 0, -1};
    return program.Pick(kIdentifiers);
}

std::vector<PlacedLeaf> LeavesOf(const ModelArea& area, std::uint32_t count) {
    std::vector<PlacedLeaf> leaves;
    for (std::uint32_t element = 0; !area.leaves.empty() && element < Elements(count); ++element) {
        const std::string index = count < 2 ? "" : '[' + std::to_string(element) + ']';
        for (const ModelLeaf& leaf : area.leaves) {
            const std::string path = leaf.path;
            leaves.push_back({index.empty() || path.empty() ? index + path : index + '.' + path,
                              std::size_t{area.size} * element + leaf.offset});
        }
    }
    return leaves;
}

}  // namespace orvell::fuzz
