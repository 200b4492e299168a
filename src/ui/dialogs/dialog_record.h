#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "orvell/orvell.h"
#include "values/base_types.h"

namespace orvell::ui {

/// The limits of the box width that the dialog shows, and its step.
inline constexpr std::uint32_t kSmallestBoxWidth = 10;
inline constexpr std::uint32_t kLargestShownBoxWidth = 995;
inline constexpr std::uint32_t kBoxWidthStep = 5;

/// What the user has accepted.
struct EditedParameter {
    std::uint32_t vectorLength = 1;
    values::ConstValueBuffer value;
    std::uint32_t boxWidth = 0;  ///< as typed
    values::DisplayFormat format = values::DisplayFormat::Default;
};

/// What the parameter dialog reads of the record that it edits, and how it writes it.
class DialogRecord {
  public:
    /// `record` must outlive this object.
    explicit DialogRecord(DialogParameterRecord& record) : record_(record) {}

    [[nodiscard]] std::uint32_t Identifier() const;

    /// True when the user may choose between a single value and a vector.
    [[nodiscard]] bool OffersVector() const;

    /// True when accepted values also go to the target system.
    [[nodiscard]] bool IsOnline() const;

    /// Both names joined by " - ", the second only when there is one.
    [[nodiscard]] std::string DisplayName() const;

    [[nodiscard]] std::uint32_t VectorLength() const { return record_.count; }

    /// The stored display format; none when the record does not carry one.
    [[nodiscard]] std::optional<values::DisplayFormat> Format() const;

    /// The width rounded down to a step and limited to what the dialog shows.
    [[nodiscard]] std::uint32_t ShownBoxWidth() const;

    /// The value's bytes; none without a pointer.
    [[nodiscard]] values::ConstValueBuffer Value() const;

    /// Takes everything over, with a value block of its own when the length differs. The width is
    /// rounded up to a step; the format is kept only when the record carries one.
    /// False, with the record unchanged, when there is no memory.
    [[nodiscard]] bool Store(const EditedParameter& edited);

  private:
    [[nodiscard]] bool StoreValue(values::ConstValueBuffer value);
    void StoreBoxWidth(std::uint32_t width);
    void StoreFormat(values::DisplayFormat format);

    DialogParameterRecord& record_;
};

}  // namespace orvell::ui
