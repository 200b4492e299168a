#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace workbench::check {

/// The end of a block that lies directly beside a page without access.
enum class Edge { End, Start };

/// Memory of an exact size between two pages that must not be touched.
///
/// One byte too many at the edge is an access violation. At the other end the block's page is
/// filled with a pattern up to the next guard page, so that a trespass there is seen afterwards.
class GuardedBlock {
  public:
    /// `what`: the block's name in reports; must outlive it.
    GuardedBlock(std::size_t size, Edge edge, std::string_view what);
    ~GuardedBlock();
    GuardedBlock(const GuardedBlock&) = delete;
    GuardedBlock& operator=(const GuardedBlock&) = delete;

    [[nodiscard]] std::uint8_t* Data() const { return data_; }
    [[nodiscard]] std::size_t Size() const { return size_; }
    [[nodiscard]] std::span<std::uint8_t> Bytes() const { return {data_, size_}; }
    [[nodiscard]] std::string_view What() const { return what_; }

    /// False when bytes beside the block have been written.
    [[nodiscard]] bool IsSurroundingIntact() const;

    /// The block to whose memory or guard pages the address belongs; null for none.
    [[nodiscard]] static const GuardedBlock* At(std::uintptr_t address);

    /// The first block with a trespass beside it; null for none.
    [[nodiscard]] static const GuardedBlock* FirstTrespassed();

    /// Leaves the blocks that are there to themselves: their owners have been left by a crash.
    static void ForgetAll();

  private:
    [[nodiscard]] std::span<std::uint8_t> Before() const;
    [[nodiscard]] std::span<std::uint8_t> Behind() const;

    std::string_view what_;
    std::size_t size_;
    std::size_t pageBytes_;  ///< between the guard pages
    std::uint8_t* reserved_;
    std::uint8_t* data_;
};

}  // namespace workbench::check
