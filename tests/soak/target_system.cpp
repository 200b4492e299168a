#include "target_system.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace orvell::soak {

namespace {

constexpr std::uint32_t kElements = 2;
constexpr std::uint32_t kElementBytes = 128;
constexpr std::uint32_t kTextBytes = 8;

std::array<char, std::size_t{kElements} * kElementBytes> memory{};

/// The place of a value of so many bytes; null outside of the memory.
char* PlaceOf(std::uint32_t element, std::uint32_t offset, std::size_t size) {
    return element < kElements && offset + size <= kElementBytes
               ? memory.data() + std::size_t{element} * kElementBytes + offset
               : nullptr;
}

template <typename Number>
std::int32_t ORVELL_CALL Put(std::uint32_t element, std::uint32_t offset, Number value) {
    char* place = PlaceOf(element, offset, sizeof value);
    if (place != nullptr) {
        std::memcpy(place, &value, sizeof value);
    }
    return place != nullptr ? 1 : 0;
}

std::int32_t ORVELL_CALL PutText(std::uint32_t element, std::uint32_t offset, const char* text) {
    char* place = PlaceOf(element, offset, kTextBytes);
    if (place != nullptr) {
        std::memcpy(place, text, std::min<std::size_t>(std::strlen(text), kTextBytes));
    }
    return place != nullptr ? 1 : 0;
}

template <typename Number>
std::int32_t ORVELL_CALL Get(std::uint32_t element, std::uint32_t offset, Number* value) {
    *value = static_cast<Number>(1 + element + offset % 7);
    return 1;
}

std::int32_t ORVELL_CALL GetText(std::uint32_t, std::uint32_t, char* buffer, std::uint32_t size) {
    constexpr std::string_view kText = "Pump";
    if (size <= kText.size()) {
        return 0;
    }
    std::memcpy(buffer, kText.data(), kText.size());
    return 1;
}

constexpr OnlineSetters kSetters{.Put8 = Put<std::uint8_t>,
                                 .Put16 = Put<std::uint16_t>,
                                 .Put32 = Put<std::uint32_t>,
                                 .Put64 = Put<std::uint64_t>,
                                 .PutFloat = Put<float>,
                                 .PutDouble = Put<double>,
                                 .PutText = PutText};

}  // namespace

OnlineAccessRecord TargetSystem::Functions() {
    return {.size = sizeof(OnlineAccessRecord),
            .setters = kSetters,
            .getters = {.Get8 = Get<std::uint8_t>,
                        .Get16 = Get<std::uint16_t>,
                        .Get32 = Get<std::uint32_t>,
                        .Get64 = Get<std::uint64_t>,
                        .GetFloat = Get<float>,
                        .GetDouble = Get<double>,
                        .GetText = GetText},
            .alternative = kSetters,
            .reserved = {}};
}

std::int32_t ORVELL_CALL TargetSystem::Fill(std::uint32_t element, std::uint32_t offset,
                                            void* bytes, std::uint32_t byteCount,
                                            std::uint32_t kind) {
    auto* place = static_cast<std::uint8_t*>(bytes);
    for (std::uint32_t i = 0; i < byteCount; ++i) {
        place[i] = static_cast<std::uint8_t>(place[i] + element + offset + kind + i);
    }
    return 1;
}

std::string_view TargetSystem::Written() {
    return {memory.data(), memory.size()};
}

void TargetSystem::Clear() {
    memory.fill(0);
}

}  // namespace orvell::soak
