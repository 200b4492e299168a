#pragma once

#include <cstdint>

#include "memstruct/type_model.h"
#include "orvell/orvell.h"
#include "values/value_converter_set.h"

namespace orvell::memstruct {

/// What a transfer asks and tells while it runs, on the thread that runs it.
class TransferWatch {
  public:
    TransferWatch() = default;
    TransferWatch(const TransferWatch&) = delete;
    TransferWatch& operator=(const TransferWatch&) = delete;
    virtual ~TransferWatch() = default;

    /// True once the transfer is to stop. Asked before every value.
    [[nodiscard]] virtual bool IsCancelled() = 0;

    /// So many further bytes of the value have been transferred.
    virtual void AddProgress(std::uint32_t bytes) = 0;

    /// Leaves the target system and the user interface time before the next element of a vector:
    /// waits one millisecond.
    virtual void Pause();
};

/// What became of a writing.
struct WriteOutcome {
    /// False when the type has no value, a setter is missing or has failed, or the bytes ran out.
    /// A cancelled writing succeeds as far as it went.
    bool succeeded = false;
    /// Elements that have been written whole.
    std::uint32_t elementsWritten = 0;

    /// True when the target system holds all `count` elements.
    [[nodiscard]] bool IsWhole(std::uint32_t count) const {
        return succeeded && elementsWritten == count;
    }
};

/// A value or vector on its way between the module's bytes and the host's functions. Leaves go one
/// by one in definition order, each told by the index of its element in the vector and its byte
/// offset inside that element. Every operation stops at the first leaf that fails; what has reached
/// the target system stays there. All referred objects must outlive the transfer.
class OnlineTransfer {
  public:
    /// `count` values of `type`, one after the other; a null or recursive type fails in everything.
    OnlineTransfer(const values::ValueConverterSet& converters, const TypeDef* type,
                   std::uint32_t count)
        : converters_(converters), type_(type), count_(count) {}

    /// Writes through the setters of online writing (`alternative`), with a pause before every
    /// element. No elements, or elements without values: success at once.
    [[nodiscard]] WriteOutcome Write(values::ConstValueBuffer bytes, const OnlineAccessRecord& host,
                                     TransferWatch& watch) const;

    /// Fills `bytes` through the getters, without pauses. A cancelled reading fails.
    [[nodiscard]] bool Read(values::ValueBuffer bytes, const OnlineAccessRecord& host,
                            TransferWatch& watch) const;

    /// Writes through the first family of setters, without pauses.
    [[nodiscard]] bool Put(values::ConstValueBuffer bytes, const OnlineAccessRecord& host) const;

    /// Hands every leaf's bytes to the host, which may change them. Goes on behind a leaf that
    /// fails; true only when none did and the bytes held the whole value.
    [[nodiscard]] bool PutRaw(values::ValueBuffer bytes, const FillRecord& host) const;

  private:
    const values::ValueConverterSet& converters_;
    const TypeDef* type_;
    std::uint32_t count_;
};

}  // namespace orvell::memstruct
