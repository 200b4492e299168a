#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/byte_stream.h"

namespace orvell::test {

/// Gives out a text in portions of at most `portion` bytes.
class MemorySource : public platform::ByteSource {
  public:
    explicit MemorySource(std::string text,
                          std::size_t portion = std::numeric_limits<std::size_t>::max())
        : text_(std::move(text)), portion_(portion) {}

    [[nodiscard]] std::size_t Read(std::span<char> buffer) override {
        const std::size_t size = std::min({buffer.size(), portion_, text_.size() - position_});
        std::copy_n(text_.begin() + static_cast<std::ptrdiff_t>(position_), size, buffer.begin());
        position_ += size;
        ++readCount;
        return size;
    }

    int readCount = 0;

  private:
    const std::string text_;
    const std::size_t portion_;
    std::size_t position_ = 0;
};

/// Keeps what is written, and fails when it is told to.
class MemorySink : public platform::ByteSink {
  public:
    static constexpr int kNever = -1;

    /// The write with the number `failingWrite`, counted from 0, and all later ones fail.
    explicit MemorySink(int failingWrite = kNever, bool failsToClose = false)
        : failingWrite_(failingWrite), failsToClose_(failsToClose) {}

    [[nodiscard]] bool Write(std::string_view bytes) override {
        if (failingWrite_ != kNever && writeCount >= failingWrite_) {
            ++refusedCount;
            return false;
        }
        ++writeCount;
        text += bytes;
        return true;
    }

    [[nodiscard]] bool Close() override {
        ++closeCount;
        return !failsToClose_;
    }

    std::string text;
    int writeCount = 0;
    int refusedCount = 0;
    int closeCount = 0;

  private:
    const int failingWrite_;
    const bool failsToClose_;
};

}  // namespace orvell::test
