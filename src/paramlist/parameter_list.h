#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "paramlist/parameter_entry.h"
#include "paramlist/parameter_kind.h"
#include "paramlist/value_type.h"
#include "paramlist/value_type_handler_set.h"
#include "resources/string_table.h"

namespace orvell::paramlist {

/// An address as the list understands it.
struct ParameterAddress {
    std::string_view keyword;       ///< part of the parsed text; empty only for an empty text
    std::uint32_t number = 0;       ///< bits: byte * 8 + bit
    bool hasDigits = false;         ///< without digits the number is 0 and as good as any
    ParameterKind* kind = nullptr;  ///< null when no kind has the keyword
};

/// The project's parameters: the kinds and their entries.
///
/// Begins without kinds; until they are built no address is known. Used on one thread. No operation
/// shows a message. Operations that add entries or set texts throw std::bad_alloc when memory is
/// short.
class ParameterList {
  public:
    /// Takes keywords and texts from `strings`, which must outlive the list.
    explicit ParameterList(const resources::StringTable& strings) : strings_(strings) {}

    ParameterList(const ParameterList&) = delete;
    ParameterList& operator=(const ParameterList&) = delete;

    /// Replaces all kinds by the first `count` of the string table, without entries. False when a
    /// keyword is missing; the others are built nevertheless. Of equal keywords the first counts.
    /// Throws std::bad_alloc when memory is short; there are no kinds then.
    bool BuildKinds(std::uint32_t count = kParameterKindCount);

    /// Builds the kinds if there are none, else removes all entries.
    void BuildOrClear();

    /// Those that have been built, which may be fewer than were asked for.
    [[nodiscard]] std::size_t KindCount() const { return kinds_.size(); }

    /// Sorted by keyword: ascending bytes.
    [[nodiscard]] std::span<ParameterKind> Kinds() { return kinds_; }
    [[nodiscard]] std::span<const ParameterKind> Kinds() const { return kinds_; }

    /// The kind with exactly this keyword, null when there is none. Valid until the kinds are built
    /// anew.
    [[nodiscard]] ParameterKind* FindKind(std::string_view keyword);
    [[nodiscard]] const ParameterKind* FindKind(std::string_view keyword) const;

    /// `None` for an unknown keyword.
    [[nodiscard]] ValueTypeCode ValueTypeOf(std::string_view keyword) const;

    /// Splits an address text and finds its kind. For bit kinds a number without a dot is a byte:
    /// "E3" is "E3.0".
    [[nodiscard]] ParameterAddress ParseAddress(std::string_view text);

    /// Removes the entries of every kind.
    void ClearAll();

    /// `ParameterKind::SetFlags` and `Purge` for every kind.
    void SetFlagsAll(std::uint32_t mask, bool set);
    void PurgeAll(std::uint32_t mask);

    /// While set, values are read from and written to declared entries only.
    [[nodiscard]] bool IsDeclaredOnly() const { return isDeclaredOnly_; }
    void SetDeclaredOnly(bool isDeclaredOnly) { isDeclaredOnly_ = isDeclaredOnly; }

    /// The entry whose value is read: the oldest, or in declared-only mode the oldest declared one.
    /// Null when there is none.
    [[nodiscard]] ParameterEntry* EntryToRead(ParameterKind& kind, std::uint32_t number) const;

    /// As `EntryToRead`, but outside declared-only mode a missing entry is created.
    [[nodiscard]] ParameterEntry* EntryToWrite(ParameterKind& kind, std::uint32_t number) const;

    /// Sets the values of consecutive numbers (modulo 2^32) from the address on through
    /// `SetFromDouble` or `SetFromDword`; entries are taken by `EntryToWrite`, missing ones passed
    /// over. Of several values, those without a name get the first one's name, those without a
    /// comment the text for vector elements with their place from 1 on. True without values; false
    /// for an unknown address; else the result of the last setter, false when none was called.
    bool FillVector(std::string_view address, std::span<const double> values);
    bool FillVector(std::string_view address, std::span<const std::uint32_t> values);

    /// Written into the headers of files.
    [[nodiscard]] const std::string& ProjectName() const { return projectName_; }
    void SetProjectName(std::string name) { projectName_ = std::move(name); }

  private:
    template <typename Number>
    using NumberSetter = bool (ValueTypeHandler::*)(ParameterValue&, Number) const;

    void InsertKind(std::vector<ParameterKind>& kinds, const std::string& keyword,
                    ValueTypeCode valueType) const;

    template <typename Number>
    bool FillVectorWith(std::string_view addressText, std::span<const Number> values,
                        NumberSetter<Number> setter);

    /// Without a handler the value becomes undefined.
    template <typename Number>
    static bool SetNumber(const ParameterKind& kind, ParameterValue& value, Number number,
                          NumberSetter<Number> setter);

    const resources::StringTable& strings_;
    ValueTypeHandlerSet handlers_;
    std::vector<ParameterKind> kinds_;
    std::string projectName_;
    bool isDeclaredOnly_ = false;
};

}  // namespace orvell::paramlist
