#pragma once

#include <algorithm>
#include <cstring>
#include <vector>

#include "check/bench.h"

namespace workbench::check {

/// A host's size-prefixed record in guarded memory that is exactly as long as the record says,
/// shorter or longer than the module's.
template <typename Record>
class HostRecord {
  public:
    /// `content` is taken as far as the declared size reaches; what lies behind gets a pattern.
    HostRecord(const Bench& bench, const Record& content, std::uint32_t declaredSize,
               std::string_view what)
        : block_(bench.Block(std::max<std::uint32_t>(declaredSize, kSizeWord), what)),
          declaredSize_(declaredSize) {
        Set(content);
    }

    void Set(const Record& content) {
        std::fill_n(block_.Data(), block_.Size(), kBehind);
        std::memcpy(block_.Data(), &content, std::min(block_.Size(), sizeof(Record)));
        std::memcpy(block_.Data(), &declaredSize_, kSizeWord);
        before_.assign(block_.Bytes().begin(), block_.Bytes().end());
    }

    [[nodiscard]] Record* Get() const { return reinterpret_cast<Record*>(block_.Data()); }
    [[nodiscard]] std::uint32_t DeclaredSize() const { return declaredSize_; }

    /// What the record says, zero where it does not reach.
    [[nodiscard]] Record Content() const {
        Record content{};
        std::memcpy(&content, block_.Data(), std::min<std::size_t>(declaredSize_, sizeof(Record)));
        content.size = declaredSize_;
        return content;
    }

    [[nodiscard]] bool IsUnchanged() const { return std::ranges::equal(block_.Bytes(), before_); }

    [[nodiscard]] bool KeepsItsSize() const {
        return std::memcmp(block_.Data(), &declaredSize_, kSizeWord) == 0;
    }

    /// True when the bytes from `start` on are zero to the record's end.
    [[nodiscard]] bool IsZeroFrom(std::size_t start) const { return HasOnly(start, 0); }

    /// True when the bytes behind the module's record still have their pattern.
    [[nodiscard]] bool IsUntouchedBehind() const { return HasOnly(sizeof(Record), kBehind); }

    /// True when a member that begins at `offset` with `width` bytes lies within the record.
    [[nodiscard]] bool Reaches(std::size_t offset, std::size_t width = sizeof(void*)) const {
        return declaredSize_ >= offset + width;
    }

  private:
    [[nodiscard]] bool HasOnly(std::size_t start, std::uint8_t value) const {
        const auto rest = block_.Bytes().subspan(std::min(start, block_.Size()));
        return std::ranges::all_of(rest, [value](std::uint8_t byte) { return byte == value; });
    }

    static constexpr std::uint32_t kSizeWord = sizeof(std::uint32_t);
    static constexpr std::uint8_t kBehind = 0xA5;

    GuardedBlock block_;
    std::uint32_t declaredSize_;
    std::vector<std::uint8_t> before_;
};

/// A text in guarded memory that ends with its closing NUL.
class HostText {
  public:
    HostText(const Bench& bench, std::string_view text, std::string_view what = "text")
        : block_(bench.Block(text.size() + 1, what)) {
        std::copy(text.begin(), text.end(), block_.Data());
        block_.Data()[text.size()] = 0;
    }

    [[nodiscard]] char* Get() const { return reinterpret_cast<char*>(block_.Data()); }

  private:
    GuardedBlock block_;
};

}  // namespace workbench::check
