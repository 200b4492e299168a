#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "paramlist/parameter_value.h"
#include "paramlist/short_text.h"

namespace orvell::paramlist {

/// Flag of the entries that the project declares in the current update cycle.
inline constexpr std::uint32_t kDeclaredMark = 0x80000000;

/// One parameter: number, flags, name, comment and value. Owned by its `ParameterKind`, at a fixed
/// address until it is purged or the kind is cleared.
///
/// An entry is 76 bytes long on the 32-bit target, since a project may have a million of them.
class ParameterEntry {
  public:
    static constexpr std::size_t kMaximumNameLength = 15;
    static constexpr std::size_t kMaximumCommentLength = 30;

    ParameterEntry() = default;
    ParameterEntry(const ParameterEntry&) = delete;
    ParameterEntry& operator=(const ParameterEntry&) = delete;

    /// For bit kinds byte * 8 + bit, else the parameter's plain number.
    [[nodiscard]] std::uint32_t Number() const { return number_; }

    /// Bit 31 is `kDeclaredMark`; the others are the host's.
    [[nodiscard]] std::uint32_t Flags() const { return flags_; }

    /// At most 15 bytes, valid until the entry is changed.
    [[nodiscard]] std::string_view Name() const { return name_.View(); }

    /// At most 30 bytes, valid until the entry is changed.
    [[nodiscard]] std::string_view Comment() const { return comment_.View(); }

    [[nodiscard]] const ParameterValue& Value() const { return value_; }
    [[nodiscard]] ParameterValue& Value() { return value_; }

    /// The accessors' rule: every text is cut to its first 15 bytes; empty for an absent one.
    void SetName(std::string_view name) { name_.Assign(name); }

    /// The accessors' rule: every text is cut to its first 30 bytes; empty for an absent one.
    void SetComment(std::string_view comment) { comment_.Assign(comment); }

    /// The rule of files and vectors: "%%" means empty, other texts are cut as by `SetName`.
    void SetNameFromFile(std::string_view name) { SetName(WithoutEmptyMark(name)); }

    /// The rule of files and vectors: "%%" means empty, other texts are cut as by `SetComment`.
    void SetCommentFromFile(std::string_view comment) { SetComment(WithoutEmptyMark(comment)); }

    /// How files spell an empty name or comment.
    static constexpr std::string_view kEmptyMark = "%%";

  private:
    friend class DuplicateMarks;
    friend class EntryPool;
    friend class EntryTable;
    friend class ParameterKind;

    static std::string_view WithoutEmptyMark(std::string_view text) {
        return text == kEmptyMark ? std::string_view() : text;
    }

    std::uint32_t number_ = 0;
    std::uint32_t flags_ = 0;
    /// Ring of the entries with this number in the order of their insertion.
    ParameterEntry* nextEqual_ = nullptr;
    /// In the last entry of a ring: the last entry of the next ring in the same slot of the table.
    ParameterEntry* nextRing_ = nullptr;
    ParameterValue value_;
    ShortText<kMaximumNameLength> name_;
    ShortText<kMaximumCommentLength> comment_;
    std::uint8_t positionInSlab_ = 0;
};

static_assert(sizeof(void*) != 4 || sizeof(ParameterEntry) == 76);

}  // namespace orvell::paramlist
