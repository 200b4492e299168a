#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "ui/grid/grid_choices.h"

namespace orvell::ui {

/// A colour as Windows keeps it: 0x00BBGGRR.
using Colour = std::uint32_t;

/// In a cell: the system's own colour for this place of the grid, read anew at each painting.
inline constexpr Colour kDefaultColour = 0xFF000000;

/// Bits of a cell's state.
inline constexpr std::uint32_t kGridCellReadOnly = 8;
inline constexpr std::uint32_t kGridCellChecked = 16;

/// Bits of a cell's text format. They have the values of Windows' drawing flags (DT_...); other
/// flags than these have no effect.
inline constexpr std::uint32_t kGridTextCentred = 0x01;
inline constexpr std::uint32_t kGridTextRight = 0x02;
inline constexpr std::uint32_t kGridTextCentredVertically = 0x04;
inline constexpr std::uint32_t kGridTextSingleLine = 0x20;

/// How cells behave; each kind has a class.
enum class GridCellKind : std::uint8_t {
    Text,   ///< CGridCell
    Check,  ///< CGridCellCheck
    Combo,  ///< CGridCellCombo
};

/// What every cell holds. Texts are bytes of the ANSI code page.
class CGridCellBase {
  public:
    [[nodiscard]] const std::string& Text() const { return text_; }
    void SetText(std::string text) { text_ = std::move(text); }
    void AssignText(std::string_view text) { text_.assign(text); }

    [[nodiscard]] std::uint32_t Data() const { return data_; }
    void SetData(std::uint32_t data) { data_ = data; }

    [[nodiscard]] std::uint32_t State() const { return state_; }
    void SetState(std::uint32_t state) { state_ = state; }
    [[nodiscard]] bool IsReadOnly() const { return (state_ & kGridCellReadOnly) != 0; }
    [[nodiscard]] bool IsChecked() const { return (state_ & kGridCellChecked) != 0; }

    [[nodiscard]] std::uint32_t Format() const { return format_; }
    void SetFormat(std::uint32_t format) { format_ = format; }

    [[nodiscard]] Colour BackColour() const { return backColour_; }
    void SetBackColour(Colour colour) { backColour_ = colour; }
    [[nodiscard]] Colour TextColour() const { return textColour_; }
    void SetTextColour(Colour colour) { textColour_ = colour; }

    /// A font handle (HFONT) that outlives the cell, null for the grid's font. Not owned.
    [[nodiscard]] void* Font() const { return font_; }
    void SetFont(void* font) { font_ = font; }

  protected:
    CGridCellBase() = default;
    CGridCellBase(const CGridCellBase&) = default;
    CGridCellBase(CGridCellBase&&) = default;
    CGridCellBase& operator=(const CGridCellBase&) = default;
    CGridCellBase& operator=(CGridCellBase&&) = default;
    ~CGridCellBase() = default;

  private:
    std::string text_;
    std::uint32_t data_ = 0;
    std::uint32_t state_ = 0;
    std::uint32_t format_ = kGridTextCentredVertically | kGridTextSingleLine;
    Colour backColour_ = kDefaultColour;
    Colour textColour_ = kDefaultColour;
    void* font_ = nullptr;
};

/// Holds the defaults from which new cells take their format, colours and font.
class CGridDefaultCell final : public CGridCellBase {};

/// A cell that is shown and edited as text, the normal kind.
class CGridCell final : public CGridCellBase {
  public:
    static constexpr GridCellKind kKind = GridCellKind::Text;

    explicit CGridCell(const CGridDefaultCell& defaults);
    explicit CGridCell(CGridCellBase&& other) : CGridCellBase(std::move(other)) {}
};

/// A cell with a check box before its text; kGridCellChecked in the state says whether it is set.
class CGridCellCheck final : public CGridCellBase {
  public:
    static constexpr GridCellKind kKind = GridCellKind::Check;

    explicit CGridCellCheck(CGridCellBase&& other) : CGridCellBase(std::move(other)) {}
};

/// A cell whose text is chosen from a drop-down list.
class CGridCellCombo final : public CGridCellBase {
  public:
    static constexpr GridCellKind kKind = GridCellKind::Combo;

    explicit CGridCellCombo(CGridCellBase&& other) : CGridCellBase(std::move(other)) {}

    [[nodiscard]] const GridChoices& Choices() const { return choices_; }
    void SetChoices(GridChoices choices) { choices_ = std::move(choices); }

  private:
    GridChoices choices_;
};

/// One place of the grid: a cell of any kind, held by value. Grids have many cells: one allocation
/// each would cost more than what they hold.
using GridCellSlot = std::variant<CGridCell, CGridCellCheck, CGridCellCombo>;

[[nodiscard]] CGridCellBase& CellIn(GridCellSlot& slot);
[[nodiscard]] const CGridCellBase& CellIn(const GridCellSlot& slot);
[[nodiscard]] GridCellKind KindOf(const GridCellSlot& slot);

/// Makes the cell one of another class; what all classes hold stays.
void ChangeKind(GridCellSlot& slot, GridCellKind kind);

}  // namespace orvell::ui
