#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace orvell::values {

/// Code of a base type, equal to the string-table number of its name.
enum class BaseTypeCode : std::uint32_t {
    None = 0,
    Int = 700,
    UInt = 701,
    Float = 702,
    Double = 703,
    String = 704,
    Duration = 705,
    Time = 706,
    Date = 707,
    DateTime = 708,
    OleDateTime = 709,
    Enumerated = 710,
    Structured = 711,
};

inline constexpr std::uint32_t kFirstBaseTypeCode = 700;
inline constexpr std::uint32_t kEndOfBaseTypeCodes = 712;

/// How integers are shown.
enum class DisplayFormat : std::uint32_t { Default = 0, Signed = 1, Unsigned = 2, Hexadecimal = 3 };

/// Order of day and month in date texts; the number of the format's name in the string table.
enum class DateFormatCode : std::uint32_t {
    None = 0,          ///< the type has no date
    DayFirst = 750,    ///< DD.MM.YYYY; also wherever no format is known
    MonthFirst = 751,  ///< MM/DD/YYYY
};

/// A value's raw bytes in the target's layout (little-endian, packed). A null pointer in a record
/// becomes an empty buffer.
using ValueBuffer = std::span<std::uint8_t>;
using ConstValueBuffer = std::span<const std::uint8_t>;

/// One name of an enumerated type.
struct EnumItem {
    std::string name;
    std::uint32_t value;
};

/// The names of an enumerated type in ascending order of their unique values.
///
/// Looked up by value in logarithmic and by name in constant time.
class EnumItemList {
  public:
    EnumItemList() = default;

    /// Takes the items in the order of their definition; of items with one value the first stays.
    explicit EnumItemList(std::vector<EnumItem> itemsInFileOrder);

    EnumItemList(EnumItemList&&) noexcept = default;
    EnumItemList& operator=(EnumItemList&&) noexcept = default;
    EnumItemList(const EnumItemList&) = delete;  // the name index refers into the items
    EnumItemList& operator=(const EnumItemList&) = delete;

    /// The item with this value, null when there is none.
    [[nodiscard]] const EnumItem* FindValue(std::uint32_t value) const;

    /// The item with exactly this name, of several the one with the smallest value; null when none.
    [[nodiscard]] const EnumItem* FindName(std::string_view name) const;

    [[nodiscard]] std::span<const EnumItem> Items() const { return items_; }

  private:
    std::vector<EnumItem> items_;
    std::unordered_map<std::string_view, std::size_t> indexByName_;
};

/// What the converters read of a type's definition.
struct TypeDescription {
    BaseTypeCode baseType = BaseTypeCode::None;
    std::uint32_t size = 0;  ///< the declared size, not the stored width
    DateFormatCode dateFormat = DateFormatCode::None;
    const EnumItemList* enumItems = nullptr;  ///< Enumerated only; null: no items
};

/// The order of day and month in the type's date texts; `DayFirst` unless the type says otherwise.
[[nodiscard]] DateFormatCode DateFormatOf(const TypeDescription& type);

/// True for the base types that need no definition of their own: FLOAT, DOUBLE, DURATION, TIME.
[[nodiscard]] bool IsImplicitType(BaseTypeCode code);

/// The display format proposed for a type: 1 for INT, 2 for UINT, -1 for all others.
[[nodiscard]] std::int32_t ProposedDisplayFormat(BaseTypeCode code);

/// Names of the enumerators that have one, in ascending order of value: the choices of a list.
[[nodiscard]] std::vector<std::string> EnumItemNames(const EnumItemList& items);

}  // namespace orvell::values
