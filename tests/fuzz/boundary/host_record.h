#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz/boundary/host_memory.h"
#include "fuzz/boundary/program.h"
#include "orvell/orvell.h"

namespace orvell::fuzz {

// Where the pointers of a record lie, in bytes from its start.
inline std::vector<std::size_t> PointersOf(const ParameterRecord&) {
    return {16};
}
inline std::vector<std::size_t> PointersOf(const ParameterDescriptionRecord&) {
    return {16, 28, 32};
}
inline std::vector<std::size_t> PointersOf(const TypeInformationRecord&) {
    return {8, 16};
}
inline std::vector<std::size_t> PointersOf(const ElementRecord&) {
    return {4, 8};
}
inline std::vector<std::size_t> PointersOf(const ConfigurationRecord&) {
    return {4, 8};
}
inline std::vector<std::size_t> PointersOf(const HostExportTable&) {
    return {4, 8, 12, 16};
}

inline std::vector<std::size_t> PointersOf(const DialogParameterRecord&) {
    return {4, 24, 32, 40, 44};
}
/// It has nothing but pointers behind its size word.
inline std::vector<std::size_t> PointersOf(const OnlineAccessRecord&) {
    std::vector<std::size_t> offsets;
    for (std::size_t at = sizeof(void*); at < sizeof(OnlineAccessRecord); at += sizeof(void*)) {
        offsets.push_back(at);
    }
    return offsets;
}

/// A host's record in memory of exactly the size that it declares, which the program chooses.
template <typename Record>
class HostRecord {
  public:
    HostRecord(Program& program, const Record& content)
        : size_(ChooseSize(program)), memory_(size_, HostMemory::Place::Aligned) {
        memory_.Put(0, BytesOf(content));
        memory_.Put(0, BytesOf(size_));
    }

    [[nodiscard]] std::uint32_t Size() const { return size_; }
    [[nodiscard]] Record* Pointer() { return memory_.As<Record>(); }
    [[nodiscard]] std::string Bytes() { return memory_.Bytes(); }

    /// The record as the module must understand it: what its size leaves out is zero, and so is
    /// a pointer of which it leaves out a part.
    [[nodiscard]] Record Understood() {
        std::string bytes = memory_.Bytes();
        bytes.resize(sizeof(Record));
        for (const std::size_t offset : PointersOf(Record{})) {
            if (size_ > offset && size_ < offset + sizeof(void*)) {
                bytes.replace(offset, sizeof(void*), sizeof(void*), '\0');
            }
        }
        Record record;
        std::memcpy(&record, bytes.data(), sizeof record);
        record.size = sizeof record;
        return record;
    }

    /// The bytes that the record must have once the module has written `content` into it.
    [[nodiscard]] std::string With(const Record& content) {
        std::string bytes = memory_.Bytes();
        const std::string written = BytesOf(content).substr(0, size_);
        bytes.replace(0, written.size(), written);
        return bytes.replace(0, sizeof size_, BytesOf(size_));
    }

    /// Whether a pointer at this offset lies within the record.
    [[nodiscard]] bool Holds(std::size_t offset) const { return size_ >= offset + sizeof(void*); }

  private:
    /// Mostly the whole record; else from its size word alone to some bytes too many.
    static std::uint32_t ChooseSize(Program& program) {
        const std::uint32_t choice = program.Choose(sizeof(Record) + 9);
        return choice == 0 ? sizeof(Record) : choice + 3;
    }

    std::uint32_t size_;
    HostMemory memory_;
};

}  // namespace orvell::fuzz
