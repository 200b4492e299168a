#include "fuzz/definitions/value_properties.h"

#include <string>
#include <vector>

#include "fuzz/definitions/value_leaves.h"
#include "fuzz/require.h"
#include "host/value_gathering.h"
#include "memstruct/value_walk.h"

namespace orvell::fuzz {

using memstruct::MemoryStructureStore;
using memstruct::NamedText;
using memstruct::TypeDef;
using memstruct::ValueWalk;
using values::ConstValueBuffer;

namespace {

using Bytes = std::vector<std::uint8_t>;

/// One value or vector in all operations; `isVector` chooses the form.
class ValueCheck {
  public:
    ValueCheck(const MemoryStructureStore& store, const values::ValueConverterSet& converters,
               const TypeDef& type, std::uint32_t count, bool isVector)
        : store_(store), converters_(converters), type_(type), count_(count), isVector_(isVector) {}

    void Run(const Bytes& bytes, const std::vector<Leaf>& leaves, bool isWhole) const {
        CheckWalk(bytes, leaves, isWhole);
        Require(Fits(bytes) == isWhole, "a value fits when its leaves do");
        std::vector<NamedText> texts = {{"left", "over"}};
        Require(Flatten(bytes, texts) == isWhole, "a value that fits has leaves");
        std::string joined = "left over";
        Require(Text(bytes, joined) == isWhole, "a value that fits has a text");
        if (!isWhole) {
            Require(texts.empty() && joined.empty(), "what fails leaves nothing behind");
            return;
        }
        CheckTexts(bytes, leaves, texts, joined);
        CheckGathering(bytes.size(), leaves, texts);
    }

  private:
    [[nodiscard]] bool Fits(const Bytes& bytes) const {
        return isVector_ ? store_.CheckVectorFits(&type_, bytes, count_)
                         : store_.CheckValueFits(&type_, bytes);
    }

    bool Flatten(const Bytes& bytes, std::vector<NamedText>& texts) const {
        return isVector_ ? store_.FlattenVector(&type_, bytes, count_, texts)
                         : store_.FlattenValue(&type_, "", bytes, texts);
    }

    bool Text(const Bytes& bytes, std::string& text) const {
        const auto format = values::DisplayFormat::Hexadecimal;
        return isVector_ ? store_.VectorText(&type_, bytes, count_, format, false, text)
                         : store_.ValueText(&type_, bytes, format, false, text);
    }

    [[nodiscard]] values::TypeDescription TypeOf(const Leaf& leaf) const {
        return store_.Types()[leaf.type].Description();
    }

    /// The walk by itself, also to the leaf at which the bytes end.
    void CheckWalk(const Bytes& bytes, const std::vector<Leaf>& leaves, bool isWhole) const {
        ValueWalk walk = isVector_ ? ValueWalk::OverVector(&type_, count_, bytes.size())
                                   : ValueWalk::OverValue(&type_, bytes.size());
        for (const Leaf& leaf : leaves) {
            Require(walk.ToNextLeaf() && &walk.LeafType() == &store_.Types()[leaf.type],
                    "the walk meets all leaves");
            Require(walk.Rest(ConstValueBuffer(bytes)).size() == bytes.size() - leaf.offset &&
                        walk.ElementIndex() == leaf.element &&
                        walk.ByteOffset() == leaf.offset - leaf.elementOffset,
                    "the walk knows where it is");
        }
        Require(!walk.ToNextLeaf() && walk.IsComplete() == isWhole, "the walk ends as it should");
    }

    void CheckTexts(const Bytes& bytes, const std::vector<Leaf>& leaves,
                    const std::vector<NamedText>& texts, const std::string& joined) const {
        Require(texts.size() == leaves.size(), "every leaf has a text");
        std::string expected;
        std::string text;
        for (std::size_t i = 0; i < leaves.size(); ++i) {
            const ConstValueBuffer rest = ConstValueBuffer(bytes).subspan(leaves[i].offset);
            converters_.ExportText(TypeOf(leaves[i]), rest, text);
            Require(texts[i].path == leaves[i].path, "paths name the way to the leaf");
            Require(texts[i].text == text, "a leaf has its converter's text");
            converters_.ValueToText(TypeOf(leaves[i]), rest, text,
                                    values::DisplayFormat::Hexadecimal, false);
            expected.append(i == 0 ? "" : "; ").append(text);
        }
        Require(joined == expected, "a text is that of all leaves");
    }

    /// The texts, stored into zeroed bytes, must come out where the converters put them.
    void CheckGathering(std::size_t byteCount, const std::vector<Leaf>& leaves,
                        std::vector<NamedText>& texts) const {
        Bytes expected(byteCount);
        std::vector<NameListNode> nodes(texts.size());
        for (std::size_t i = 0; i < texts.size(); ++i) {
            nodes[i].next = i + 1 < nodes.size() ? &nodes[i + 1] : nullptr;
            nodes[i].first = texts[i].path.data();
            nodes[i].second = texts[i].text.data();
            converters_.ImportText(TypeOf(leaves[i]), texts[i].text,
                                   values::ValueBuffer(expected).subspan(leaves[i].offset));
        }
        const std::uint32_t count = isVector_ ? count_ : 1;
        if (isVector_ && count_ < 2) {
            return;  // counts below 2 stand for a single value there
        }
        Bytes gathered(byteCount);
        Require(host::GatherFromTexts({type_, count, gathered}, nodes.empty() ? nullptr : &nodes[0],
                                      converters_),
                "the texts of a value are a value");
        Require(gathered == expected, "texts are stored where they came from");
    }

    const MemoryStructureStore& store_;
    const values::ValueConverterSet& converters_;
    const TypeDef& type_;
    std::uint32_t count_;
    bool isVector_;
};

}  // namespace

void CheckValues(const MemoryStructureStore& store, const DefinitionModel& model,
                 const values::ValueConverterSet& converters, std::size_t type, std::uint32_t count,
                 std::span<const std::uint8_t> bytes) {
    const Bytes value(bytes.begin(), bytes.end());
    const TypeDef& typeDef = store.Types()[type];
    Leaves leaves(model, value.size());
    const bool isWhole = leaves.Add(type, "");
    ValueCheck(store, converters, typeDef, count, false).Run(value, leaves.List(), isWhole);
    Leaves vectorLeaves(model, value.size());
    const bool isVectorWhole = vectorLeaves.AddVector(type, count);
    ValueCheck(store, converters, typeDef, count, true)
        .Run(value, vectorLeaves.List(), isVectorWhole);
}

}  // namespace orvell::fuzz
