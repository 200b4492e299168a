#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "orvell/orvell.h"

namespace orvell::host {

/// Moves a size-prefixed record across the boundary.
///
/// Copies min(source size, destination size) bytes, then zeroes those bytes in the source: pointers
/// and their ownership pass to the destination. Both size words stay as they are. With `clear` the
/// destination's whole declared size is zeroed first. A null source copies nothing; a null
/// destination does nothing at all.
void CopySizedTable(void* source, void* destination, bool clear);

/// As above, but leaves the source as it is.
void CopySizedTable(const void* source, void* destination, bool clear);

/// Fills the host's table, as many bytes as its first word says, with the slots of ours: those that
/// fit whole, zeros behind them. Our table is emptied by it.
void HandOverTable(void* ownTable, void* hostTable);

/// Places of a record's pointers, in bytes from its start.
template <typename Record>
inline constexpr std::array<std::size_t, 0> kPointerOffsets{};
template <>
inline constexpr std::array kPointerOffsets<HostExportTable>{
    offsetof(HostExportTable, MessagePageLookup), offsetof(HostExportTable, MessagePageAppend),
    offsetof(HostExportTable, reserved3), offsetof(HostExportTable, reserved4)};
template <>
inline constexpr std::array kPointerOffsets<ParameterRecord>{offsetof(ParameterRecord, bytes)};
template <>
inline constexpr std::array kPointerOffsets<ConfigurationRecord>{
    offsetof(ConfigurationRecord, owner), offsetof(ConfigurationRecord, path)};
template <>
inline constexpr std::array kPointerOffsets<TypeInformationRecord>{
    offsetof(TypeInformationRecord, name), offsetof(TypeInformationRecord, baseTypeName)};
template <>
inline constexpr std::array kPointerOffsets<ParameterDescriptionRecord>{
    offsetof(ParameterDescriptionRecord, bytes), offsetof(ParameterDescriptionRecord, texts),
    offsetof(ParameterDescriptionRecord, address)};
template <>
inline constexpr std::array kPointerOffsets<ElementRecord>{offsetof(ElementRecord, name),
                                                           offsetof(ElementRecord, typeName)};

template <>
inline constexpr std::array kPointerOffsets<DialogParameterRecord>{
    offsetof(DialogParameterRecord, owner), offsetof(DialogParameterRecord, block),
    offsetof(DialogParameterRecord, bytes), offsetof(DialogParameterRecord, name),
    offsetof(DialogParameterRecord, extension)};
template <>
inline constexpr std::array kPointerOffsets<FillRecord>{offsetof(FillRecord, Put)};
/// The places of a record that has nothing but pointers behind its size word.
template <typename Record>
consteval auto OffsetsBehindSize() {
    std::array<std::size_t, sizeof(Record) / sizeof(void*) - 1> offsets{};
    for (std::size_t i = 0; i < offsets.size(); ++i) {
        offsets[i] = (i + 1) * sizeof(void*);
    }
    return offsets;
}
template <>
inline constexpr auto kPointerOffsets<OnlineAccessRecord> = OffsetsBehindSize<OnlineAccessRecord>();

/// Places of the pointers whose memory a record owns: it comes from the module's allocator.
template <typename Record>
inline constexpr std::array<std::size_t, 0> kOwnedOffsets{};
template <>
inline constexpr std::array kOwnedOffsets<ParameterRecord>{offsetof(ParameterRecord, bytes)};
template <>
inline constexpr std::array kOwnedOffsets<DialogParameterRecord>{
    offsetof(DialogParameterRecord, block), offsetof(DialogParameterRecord, bytes)};
template <>
inline constexpr std::array kOwnedOffsets<ParameterDescriptionRecord>{
    offsetof(ParameterDescriptionRecord, bytes)};
template <>
inline constexpr std::array kOwnedOffsets<TypeInformationRecord>{
    offsetof(TypeInformationRecord, name), offsetof(TypeInformationRecord, baseTypeName)};
template <>
inline constexpr std::array kOwnedOffsets<ElementRecord>{offsetof(ElementRecord, name),
                                                         offsetof(ElementRecord, typeName)};

/// Zeroes the pointer that the sender's size cuts in two, if any: half a pointer is none.
void DropCutPointer(void* record, std::uint32_t senderSize, std::span<const std::size_t> offsets);

/// A copy of the host's record that is our own, as far as the host's size reaches; the rest and a
/// null record count as zero.
template <typename Record>
[[nodiscard]] Record ReadRecord(const Record* hostRecord) {
    Record record{};
    record.size = sizeof(Record);
    CopySizedTable(static_cast<const void*>(hostRecord), &record, false);
    if (hostRecord != nullptr) {
        DropCutPointer(&record, hostRecord->size, kPointerOffsets<Record>);
    }
    return record;
}

/// As `ReadRecord`, but empties the host's record: what it owned is ours now.
template <typename Record>
[[nodiscard]] Record TakeRecord(Record* hostRecord) {
    const Record record = ReadRecord(hostRecord);
    Record emptied = record;
    CopySizedTable(static_cast<void*>(hostRecord), &emptied, false);
    return record;
}

/// Frees and zeroes those of the record's own pointers that do not fit whole into the receiver's
/// size.
void FreeWhatDoesNotFit(void* record, std::uint32_t receiverSize,
                        std::span<const std::size_t> ownedOffsets);

/// A record of ours on its way to the host. What it owns at its end is freed.
template <typename Record>
class OwnedRecord {
  public:
    OwnedRecord() { record_.size = sizeof(Record); }
    explicit OwnedRecord(const Record& record) : record_(record) {}
    OwnedRecord(OwnedRecord&& other) noexcept : record_(other.record_) { other.record_ = {}; }
    OwnedRecord& operator=(OwnedRecord&&) = delete;
    ~OwnedRecord() { FreeWhatDoesNotFit(&record_, 0, kOwnedOffsets<Record>); }

    [[nodiscard]] Record* operator->() { return &record_; }

    /// Moves the record into the host's, which takes over what fits. With `clear` the host's whole
    /// declared size is zeroed first. A null host record takes nothing.
    void HandOver(Record* hostRecord, bool clear) {
        if (hostRecord != nullptr) {
            FreeWhatDoesNotFit(&record_, hostRecord->size, kOwnedOffsets<Record>);
        }
        CopySizedTable(static_cast<void*>(&record_), hostRecord, clear);
    }

  private:
    Record record_{};
};

}  // namespace orvell::host
