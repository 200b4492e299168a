#include "memstruct/online_transfer.h"

#include "memstruct/value_walk.h"
#include "platform/pause.h"

namespace orvell::memstruct {

using values::ConstValueBuffer;
using values::ValueBuffer;

void TransferWatch::Pause() {
    platform::Pause(1);
}

WriteOutcome OnlineTransfer::Write(ConstValueBuffer bytes, const OnlineAccessRecord& host,
                                   TransferWatch& watch) const {
    ValueWalk walk = ValueWalk::OverVector(type_, count_, bytes.size());
    while (walk.ToNextLeaf()) {
        const TypeDef& leaf = walk.LeafType();
        const std::uint32_t element = walk.ElementIndex();
        const bool beginsElement = walk.ByteOffset() == 0;
        if (watch.IsCancelled()) {
            return {true, element};
        }
        if (beginsElement) {
            watch.Pause();
            if (type_->IsStructured() && watch.IsCancelled()) {
                return {true, element};
            }
        }
        if (!converters_.PutToHostAlt(leaf.Description(), element, walk.ByteOffset(),
                                      walk.Rest(bytes), host)) {
            return {false, element};
        }
        watch.AddProgress(leaf.storedSize);
    }
    return walk.IsComplete() ? WriteOutcome{true, count_}
                             : WriteOutcome{false, walk.ElementIndex()};
}

bool OnlineTransfer::Read(ValueBuffer bytes, const OnlineAccessRecord& host,
                          TransferWatch& watch) const {
    ValueWalk walk = ValueWalk::OverVector(type_, count_, bytes.size());
    while (walk.ToNextLeaf()) {
        const TypeDef& leaf = walk.LeafType();
        if (watch.IsCancelled() ||
            !converters_.GetFromHost(leaf.Description(), walk.ElementIndex(), walk.ByteOffset(),
                                     walk.Rest(bytes), host)) {
            return false;
        }
        watch.AddProgress(leaf.storedSize);
    }
    return walk.IsComplete();
}

bool OnlineTransfer::Put(ConstValueBuffer bytes, const OnlineAccessRecord& host) const {
    ValueWalk walk = ValueWalk::OverVector(type_, count_, bytes.size());
    while (walk.ToNextLeaf()) {
        if (!converters_.PutToHost(walk.LeafType().Description(), walk.ElementIndex(),
                                   walk.ByteOffset(), walk.Rest(bytes), host)) {
            return false;
        }
    }
    return walk.IsComplete();
}

bool OnlineTransfer::PutRaw(ValueBuffer bytes, const FillRecord& host) const {
    bool allPut = true;
    ValueWalk walk = ValueWalk::OverVector(type_, count_, bytes.size());
    while (walk.ToNextLeaf()) {
        allPut &= converters_.PutRawToHost(walk.LeafType().Description(), walk.ElementIndex(),
                                           walk.ByteOffset(), walk.Rest(bytes), host);
    }
    return walk.IsComplete() && allPut;
}

}  // namespace orvell::memstruct
