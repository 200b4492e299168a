#include "check/host_functions.h"

#include <algorithm>
#include <cstring>

namespace workbench::check {
namespace {

using Family = HostCall::Family;

HostFunctions* current = nullptr;

template <typename Value, Carrier carrier, Family family>
std::int32_t ORVELL_CALL Put(std::uint32_t first, std::uint32_t second, Value) {
    return current->Take({family, carrier, first, second, 0});
}

/// Reads the text to its end, as a host would.
template <Family family>
std::int32_t ORVELL_CALL PutText(std::uint32_t first, std::uint32_t second, const char* text) {
    return current->Take(
        {family, Carrier::Text, first, second, static_cast<std::uint32_t>(std::strlen(text))});
}

template <typename Value, Carrier carrier>
std::int32_t ORVELL_CALL Get(std::uint32_t first, std::uint32_t second, Value* value) {
    std::memset(value, current->supply, sizeof *value);
    return current->Take({Family::Getter, carrier, first, second, 0});
}

std::int32_t ORVELL_CALL GetText(std::uint32_t first, std::uint32_t second, char* buffer,
                                 std::uint32_t size) {
    std::memset(buffer, current->supply, size);
    return current->Take({Family::Getter, Carrier::Text, first, second, size});
}

std::int32_t ORVELL_CALL PutRaw(std::uint32_t first, std::uint32_t second, void* bytes,
                                std::uint32_t byteCount, std::uint32_t kind) {
    std::memset(bytes, current->supply, byteCount);
    return current->Take({Family::Raw, {}, first, second, byteCount, kind});
}

template <Family family>
constexpr OnlineSetters kSetters{Put<std::uint8_t, Carrier::Byte, family>,
                                 Put<std::uint16_t, Carrier::Word, family>,
                                 Put<std::uint32_t, Carrier::Long, family>,
                                 Put<std::uint64_t, Carrier::Qword, family>,
                                 Put<float, Carrier::Float, family>,
                                 Put<double, Carrier::Double, family>,
                                 PutText<family>};

constexpr OnlineGetters kGetters{Get<std::uint8_t, Carrier::Byte>,
                                 Get<std::uint16_t, Carrier::Word>,
                                 Get<std::uint32_t, Carrier::Long>,
                                 Get<std::uint64_t, Carrier::Qword>,
                                 Get<float, Carrier::Float>,
                                 Get<double, Carrier::Double>,
                                 GetText};

}  // namespace

HostFunctions::HostFunctions() {
    current = this;
    calls.reserve(256);
}

HostFunctions::~HostFunctions() {
    current = nullptr;
}

OnlineAccessRecord HostFunctions::Online() {
    OnlineAccessRecord record{sizeof(OnlineAccessRecord),
                              kSetters<Family::Setter>,
                              kGetters,
                              kSetters<Family::Alternative>,
                              {}};
    std::ranges::fill(record.reserved, 0xDEADBEEF);  // would crash if it were called
    return record;
}

FillRecord HostFunctions::Fill() {
    return {sizeof(FillRecord), PutRaw};
}

void HostFunctions::Reset() {
    refusedCall = kNever;
    cancellingCall = kNever;
    cancel = 0;
    supply = 0x21;
    calls.clear();
}

std::int32_t HostFunctions::Take(const HostCall& call) {
    const std::size_t index = calls.size();
    calls.push_back(call);
    if (index == cancellingCall) {
        cancel = 1;
    }
    return index == refusedCall ? 0 : 1;
}

}  // namespace workbench::check
