#include "ui/dialogs/value_rows.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <unordered_map>

#include "platform/system_color.h"

namespace orvell::ui {

using memstruct::TypeDef;
using memstruct::ValueWalk;
using values::BaseTypeCode;
using values::ConstValueBuffer;
using values::DisplayFormat;
using values::ValueBuffer;

namespace {

/// A light tint of the window's colour: its blue part is limited.
Colour NameBackground() {
    constexpr Colour kBlue = 0x00FF0000;
    constexpr Colour kLargestBlue = 0x00DC0000;
    const Colour window = platform::WindowColor();
    return (window & ~kBlue) | std::min(window & kBlue, kLargestBlue);
}

ValueWalk WalkOver(const TypeDef& type, std::uint32_t count, std::size_t byteCount) {
    return count < 2 ? ValueWalk::OverValue(&type, byteCount)
                     : ValueWalk::OverVector(&type, count, byteCount);
}

void KeepLeaf(const TypeDef& leaf, ValueBuffer bytes, ConstValueBuffer previous) {
    const auto width = std::min<std::size_t>({leaf.storedSize, bytes.size(), previous.size()});
    std::copy_n(previous.begin(), width, bytes.begin());
}

constexpr std::size_t kUnlimited = std::numeric_limits<std::size_t>::max();

}  // namespace

/// One writing of rows.
class ValueRows::Writer {
  public:
    Writer(const values::ValueConverterSet& converters, GridModel& grid, DisplayFormat format)
        : converters_(converters), grid_(grid), format_(format) {}

    void Write(int row, const std::string& name, const TypeDef& type, ConstValueBuffer bytes) {
        WriteName(row, name, type.baseType);
        WriteValue(row, type, bytes);
    }

  private:
    void WriteName(int row, const std::string& name, BaseTypeCode code) {
        if (row < grid_.GetRowCount()) {
            grid_.SetItemText(row, kNameColumn, name);
        } else if (grid_.InsertRow(name) != row) {
            throw std::bad_alloc();
        }
        grid_.SetItemData(row, kNameColumn, static_cast<std::uint32_t>(code));
        grid_.SetItemState(row, kNameColumn, kGridCellReadOnly);
        grid_.SetItemBackColour(row, kNameColumn, background_);
    }

    void WriteValue(int row, const TypeDef& type, ConstValueBuffer bytes) {
        const values::TypeDescription description = type.Description();
        grid_.SetItemData(row, kValueColumn, converters_.NormalizeParam(description));
        if (type.baseType == BaseTypeCode::Enumerated) {
            grid_.SetCellType(row, kValueColumn, GridCellKind::Combo);
            grid_.SetChoices(row, kValueColumn, ChoicesOf(type));
        } else {
            grid_.SetCellType(row, kValueColumn, GridCellKind::Text);
        }
        constexpr bool kBare = true;
        if (!converters_.ValueToText(description, bytes, text_, format_, kBare)) {
            converters_.DefaultText(description, text_, format_);
        }
        grid_.SetItemText(row, kValueColumn, text_);
    }

    /// One list for all rows of the type.
    const GridChoices& ChoicesOf(const TypeDef& type) {
        GridChoices& choices = choices_[&type];
        if (choices == nullptr) {
            choices = std::make_shared<const GridChoiceList>(values::EnumItemNames(type.enumItems));
        }
        return choices;
    }

    const values::ValueConverterSet& converters_;
    GridModel& grid_;
    DisplayFormat format_;
    Colour background_ = NameBackground();
    std::unordered_map<const TypeDef*, GridChoices> choices_;
    std::string text_;
};

void ValueRows::Write(const TypeDef& type, std::uint32_t count, ConstValueBuffer bytes,
                      DisplayFormat format, std::string_view prefix) {
    Writer writer(converters_, grid_, format);
    ValueWalk walk = WalkOver(type, count, kUnlimited);
    walk.TrackPaths(prefix);
    int row = kFirstValueRow;
    for (; walk.ToNextLeaf(); ++row) {
        writer.Write(row, walk.Path(), walk.LeafType(), walk.Rest(bytes));
    }
    DeleteRowsFrom(row);
}

void ValueRows::DeleteRowsFrom(int row) {
    while (grid_.GetRowCount() > row) {
        grid_.DeleteRow(grid_.GetRowCount() - 1);
    }
}

bool ValueRows::Read(const TypeDef& type, std::uint32_t count, ValueBuffer bytes,
                     ConstValueBuffer previous, DisplayFormat format) const {
    bool allRead = true;
    ValueWalk walk = WalkOver(type, count, bytes.size());
    for (int row = kFirstValueRow; walk.ToNextLeaf(); ++row) {
        if (!ReadRow(row, walk.LeafType(), walk.Rest(bytes), format)) {
            KeepLeaf(walk.LeafType(), walk.Rest(bytes), walk.Rest(previous));
            allRead = false;
        }
    }
    return walk.IsComplete() && allRead;
}

bool ValueRows::ReadRow(int row, const TypeDef& leaf, ValueBuffer bytes,
                        DisplayFormat format) const {
    return grid_.GetItemData(row, kNameColumn) == static_cast<std::uint32_t>(leaf.baseType) &&
           converters_.TextToValue(leaf.Description(), bytes, grid_.GetItemText(row, kValueColumn),
                                   format);
}

void ValueRows::Normalize(int row, DisplayFormat format) {
    const auto code = static_cast<BaseTypeCode>(grid_.GetItemData(row, kNameColumn));
    std::string text = grid_.GetItemText(row, kValueColumn);
    if (converters_.Normalize(code, grid_.GetItemData(row, kValueColumn), text, format)) {
        grid_.SetItemText(row, kValueColumn, text);
    }
}

void ValueRows::ColourNames() {
    const Colour background = NameBackground();
    for (int row = kFirstValueRow; row < grid_.GetRowCount(); ++row) {
        grid_.SetItemBackColour(row, kNameColumn, background);
    }
}

}  // namespace orvell::ui
