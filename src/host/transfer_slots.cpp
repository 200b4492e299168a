#include "host/boundary_memory.h"
#include "host/guard.h"
#include "host/module.h"
#include "host/parameter_record.h"
#include "host/sized_record.h"
#include "host/standard_parameter_slots.h"
#include "memstruct/online_transfer.h"

namespace orvell::host {

using memstruct::MemoryStructureStore;
using memstruct::OnlineTransfer;
using memstruct::TypeDef;

namespace {

constexpr int32_t kReadingFailed = -1;

/// A transfer on the host's thread, which the host cancels through a word of its own.
class HostWatch final : public memstruct::TransferWatch {
  public:
    explicit HostWatch(const volatile uint32_t* cancel) : cancel_(cancel) {}

    bool IsCancelled() override { return cancel_ != nullptr && *cancel_ != 0; }
    void AddProgress(uint32_t) override {}

  private:
    const volatile uint32_t* cancel_;
};

OnlineTransfer TransferOf(const ParameterRecord& record, const TypeDef* type) {
    return {TheModule().converters, type, ElementCount(record.count)};
}

/// Fills a new buffer for the record's value by `fill` and hands it over in the host's record.
/// `fillFailed` is the result when `fill` returns false.
template <typename Fill>
int32_t FillNewValue(ParameterRecord* hostRecord, int32_t fillFailed, const Fill& fill) {
    const ParameterRecord record = ReadRecord(hostRecord);
    const TypeDef* type = TypeOf(record.identifier);
    if (type == nullptr) {
        return kFailure;
    }
    const uint64_t length = uint64_t{MemoryStructureStore::StoredSize(type)} * record.count;
    if (length == 0) {
        return kSuccess;
    }
    BoundaryBytes bytes = ZeroedBytes(length);
    if (bytes.memory == nullptr) {
        return kFailure;
    }
    if (!fill(TransferOf(record, type), bytes.Span())) {
        return fillFailed;
    }
    OwnedRecord filled(record);
    filled->length = bytes.length;
    filled->bytes = bytes.memory.release();
    filled.HandOver(hostRecord, false);
    return kSuccess;
}

int32_t ConvertParameter(const ParameterRecord& record, const OnlineAccessRecord& online) {
    const TypeDef* type = TypeOf(record.identifier);
    return TransferOf(record, type).Put(ValueBytes(record), online) ? kSuccess : kFailure;
}

int32_t ReadOnline(ParameterRecord* hostRecord, const OnlineAccessRecord& online,
                   const volatile uint32_t* cancel) {
    return FillNewValue(hostRecord, kReadingFailed,
                        [&](const OnlineTransfer& transfer, values::ValueBuffer bytes) {
                            HostWatch watch(cancel);
                            return transfer.Read(bytes, online, watch);
                        });
}

int32_t WriteOnline(const ParameterRecord& record, const OnlineAccessRecord& online,
                    const volatile uint32_t* cancel) {
    HostWatch watch(cancel);
    const memstruct::WriteOutcome outcome =
        TransferOf(record, TypeOf(record.identifier)).Write(ValueBytes(record), online, watch);
    return outcome.IsWhole(ElementCount(record.count)) ? kSuccess : kFailure;
}

int32_t FillValue(ParameterRecord* hostRecord, const FillRecord& host) {
    return FillNewValue(hostRecord, kFailure,
                        [&](const OnlineTransfer& transfer, values::ValueBuffer bytes) {
                            return transfer.PutRaw(bytes, host);
                        });
}

int32_t FillValueInPlace(const ParameterRecord& record, const FillRecord& host) {
    const TypeDef* type = TypeOf(record.identifier);
    return TransferOf(record, type).PutRaw(ValueBytes(record), host) ? kSuccess : kFailure;
}

/// As `Guarded` for a body that calls the host's functions, and through them anything.
template <typename Body>
int32_t GuardedTransfer(const Body& body) noexcept {
    return Guarded(kFailure, [&] {
        const memstruct::DefinitionsInUse inUse(TheModule().store);
        return body();
    });
}

}  // namespace

namespace slots {

int32_t ORVELL_CALL ConvertStdParameter(ParameterRecord* record,
                                        OnlineAccessRecord* online) noexcept {
    return GuardedTransfer(
        [&] { return ConvertParameter(ReadRecord(record), ReadRecord(online)); });
}

int32_t ORVELL_CALL ReadStdParameterOnline(ParameterRecord* record, OnlineAccessRecord* online,
                                           volatile uint32_t* cancel) noexcept {
    return GuardedTransfer([&] { return ReadOnline(record, ReadRecord(online), cancel); });
}

int32_t ORVELL_CALL WriteStdParameterOnline(ParameterRecord* record, OnlineAccessRecord* online,
                                            volatile uint32_t* cancel) noexcept {
    return GuardedTransfer(
        [&] { return WriteOnline(ReadRecord(record), ReadRecord(online), cancel); });
}

int32_t ORVELL_CALL FillStdParameterValue(ParameterRecord* record, FillRecord* host) noexcept {
    return GuardedTransfer([&] { return FillValue(record, ReadRecord(host)); });
}

int32_t ORVELL_CALL FillStdParameterValueInPlace(ParameterRecord* record,
                                                 FillRecord* host) noexcept {
    return GuardedTransfer([&] { return FillValueInPlace(ReadRecord(record), ReadRecord(host)); });
}

}  // namespace slots

}  // namespace orvell::host
