#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace orvell::resources {

/// One argument of a format text.
using FormatArgument = std::variant<std::string_view, std::int32_t, std::uint32_t>;

/// A printf-style text of the string table, parsed once and then applied to any number of records.
///
/// Format texts may come from a translated resource library, so none of them is trusted: a
/// conversion prints the argument at its place whatever the argument's type, a conversion without
/// an argument prints nothing, an argument without a conversion is dropped, and whatever is not a
/// known conversion ("%n", "%*d", a "%" at the end) is printed as it stands. Widths and precisions
/// are limited to `kMaximumWidth`. Known: flags "-", "0", "+", " ", "#", a width, a precision, the
/// lengths h, hh, l, ll, I32 and I64, the conversions d i u x X c s and "%%".
/// (C11, 7.21.6.1; I32 and I64 as in Microsoft's run-time library.)
class CheckedFormat {
  public:
    static constexpr std::uint32_t kMaximumWidth = 4096;

    explicit CheckedFormat(std::string_view format);

    /// Appends the text with the arguments filled in.
    void AppendTo(std::string& out, std::span<const FormatArgument> arguments) const;

  private:
    struct Piece {
        std::string literal;  ///< printed before the conversion
        char conversion = 0;  ///< d, u, x, X, c or s; 0: none, the end of the text
        bool leftAligned = false;
        bool zeroPadded = false;
        bool plusSign = false;
        bool blankSign = false;
        bool alternative = false;
        std::uint32_t width = 0;
        std::int32_t precision = -1;  ///< -1: none given
    };

    std::vector<Piece> pieces_;
};

/// `format` with the arguments filled in, by the rules of `CheckedFormat`.
[[nodiscard]] std::string FormatText(std::string_view format,
                                     std::initializer_list<FormatArgument> arguments);

}  // namespace orvell::resources
