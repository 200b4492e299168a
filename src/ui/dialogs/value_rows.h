#pragma once

#include <cstdint>
#include <string_view>

#include "memstruct/type_model.h"
#include "memstruct/value_walk.h"
#include "ui/grid/grid_model.h"
#include "values/value_converter_set.h"

namespace orvell::ui {

inline constexpr int kNameColumn = 0;
inline constexpr int kValueColumn = 1;
inline constexpr int kHeaderRow = 0;
inline constexpr int kFirstValueRow = 1;

/// A value or vector as rows of a grid, one a leaf, below the header: the leaf's path and base-type
/// code in the first column, its text and what `ValueConverter::Normalize` needs in the second.
class ValueRows {
  public:
    /// All must outlive this object.
    ValueRows(const values::ValueConverterSet& converters, GridModel& grid)
        : converters_(converters), grid_(grid) {}

    /// Writes the rows of `count` values, a vector from two on, and deletes all rows behind them.
    /// Leaves without enough bytes show their type's default. `prefix` begins every path.
    /// The type must be usable throughout.
    void Write(const memstruct::TypeDef& type, std::uint32_t count, values::ConstValueBuffer bytes,
               values::DisplayFormat format, std::string_view prefix);

    /// Stores the values that the rows spell in `bytes`. A leaf that has no row, a row of another
    /// base type or a text that cannot be converted keeps the bytes that it has in `previous`, as
    /// far as these reach. True when there was none such and the bytes sufficed.
    [[nodiscard]] bool Read(const memstruct::TypeDef& type, std::uint32_t count,
                            values::ValueBuffer bytes, values::ConstValueBuffer previous,
                            values::DisplayFormat format) const;

    /// Rewrites the row's text into the canonical text of what it spells; a text that spells
    /// nothing stays.
    void Normalize(int row, values::DisplayFormat format);

    /// Gives all names their background again, after the system's colours have changed.
    void ColourNames();

  private:
    class Writer;

    void DeleteRowsFrom(int row);
    [[nodiscard]] bool ReadRow(int row, const memstruct::TypeDef& leaf, values::ValueBuffer bytes,
                               values::DisplayFormat format) const;

    const values::ValueConverterSet& converters_;
    GridModel& grid_;
};

}  // namespace orvell::ui
