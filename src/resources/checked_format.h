#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "resources/format_conversion.h"

namespace orvell::resources {

/// One argument of a format text.
using FormatArgument = std::variant<std::string_view, std::int32_t, std::uint32_t>;

/// A printf-style text of the string table, parsed once and then applied to any number of records.
///
/// Format texts may come from a translated resource library, so none of them is trusted: a
/// conversion prints the argument at its place whatever the argument's type, a conversion without
/// an argument prints nothing, an argument without a conversion is dropped, and whatever is not a
/// known conversion ("%n", "%*d", a "%" at the end) is printed as it stands. Widths and precisions
/// are limited to `FormatConversion::kMaximumWidth`. Known: flags "-", "0", "+", " ", "#", a width,
/// a precision, the lengths h, hh, l, ll, I32 and I64, the conversions d i u x X c s and "%%".
/// (C11, 7.21.6.1; I32 and I64 as in Microsoft's run-time library.)
///
/// Integer arguments have 32 bits whatever the length says, and as with printf it is the conversion
/// that decides whether they are signed. A text under d, i, u, x, X or c and a number under s are
/// printed whole, with the width and the flag "-" only.
class CheckedFormat {
  public:
    explicit CheckedFormat(std::string_view format);

    /// Appends the text with the arguments filled in. Allocates nothing but room in `out`.
    void AppendTo(std::string& out, std::span<const FormatArgument> arguments) const;

  private:
    struct Piece {
        std::string literal;  ///< printed before the conversion
        FormatConversion conversion;
    };

    [[nodiscard]] bool AppendPlain(std::string& out,
                                   std::span<const FormatArgument> arguments) const;
    void AppendAny(std::string& out, std::span<const FormatArgument> arguments) const;

    std::vector<Piece> pieces_;   ///< the last has no conversion
    std::size_t numberRoom_ = 0;  ///< what is written at most when all arguments are numbers
};

/// `format` with the arguments filled in, by the rules of `CheckedFormat`.
[[nodiscard]] std::string FormatText(std::string_view format,
                                     std::initializer_list<FormatArgument> arguments);

}  // namespace orvell::resources
