#pragma once

#include <optional>
#include <vector>

#include "resources/string_table.h"
#include "values/base_types.h"

namespace orvell::ui {

/// The display formats that the user may choose from; none: the format box stays hidden.
struct FormatChoice {
    std::vector<values::DisplayFormat> formats;
    /// The one chosen; `Default` while the box is hidden.
    values::DisplayFormat selected = values::DisplayFormat::Default;

    [[nodiscard]] bool IsOffered() const { return !formats.empty(); }
};

/// What to offer for a value of base type `code` whose record carries the format `wanted`: signed,
/// unsigned and hexadecimal for integers, nothing for all others or without a stored format.
/// In place of `Default` the type's own format is selected.
[[nodiscard]] FormatChoice OfferFormats(values::BaseTypeCode code,
                                        std::optional<values::DisplayFormat> wanted);

/// The format's name in the string table.
[[nodiscard]] resources::StringId FormatName(values::DisplayFormat format);

}  // namespace orvell::ui
