#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace orvell::platform {

/// Where bytes come from: a file in use, memory in tests.
class ByteSource {
  public:
    ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;
    virtual ~ByteSource() = default;

    /// Fills the start of `buffer`, which has room for at least one byte, and returns how many
    /// bytes it wrote there. 0 at the end; a source that cannot be read any further ends there.
    [[nodiscard]] virtual std::size_t Read(std::span<char> buffer) = 0;
};

/// Where bytes go to.
class ByteSink {
  public:
    ByteSink() = default;
    ByteSink(const ByteSink&) = delete;
    ByteSink& operator=(const ByteSink&) = delete;
    virtual ~ByteSink() = default;

    /// False unless all bytes could be written.
    [[nodiscard]] virtual bool Write(std::string_view bytes) = 0;

    /// Ends writing; to be called once. False when something written before could not be stored.
    /// A sink that is destroyed without it is closed all the same.
    [[nodiscard]] virtual bool Close() = 0;
};

/// The bytes of a file, as they are, from its start. The path is in the ANSI code page. Null when
/// the file cannot be opened. Others may write into the file meanwhile.
[[nodiscard]] std::unique_ptr<ByteSource> OpenFileToRead(const std::string& path);

/// Creates the file, or empties an existing one. The path is in the ANSI code page. Null when that
/// is not possible. Others may only read the file meanwhile. Every write goes to the system at
/// once, so callers write large blocks.
[[nodiscard]] std::unique_ptr<ByteSink> OpenFileToWrite(const std::string& path);

}  // namespace orvell::platform
