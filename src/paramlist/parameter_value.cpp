#include "paramlist/parameter_value.h"

#include <limits>
#include <new>
#include <utility>

namespace orvell::paramlist {
namespace {

using HeapBytes = std::unique_ptr<std::uint8_t[]>;

}  // namespace

ParameterValue::ParameterValue(const ParameterValue& other) {
    Assign(other.Bytes());
}

ParameterValue::ParameterValue(ParameterValue&& other) noexcept {
    TakeFrom(other);
}

ParameterValue& ParameterValue::operator=(const ParameterValue& other) {
    if (this != &other) {
        Assign(other.Bytes());
    }
    return *this;
}

ParameterValue& ParameterValue::operator=(ParameterValue&& other) noexcept {
    if (this != &other) {
        Clear();
        TakeFrom(other);
    }
    return *this;
}

void ParameterValue::Clear() noexcept {
    if (!IsInline()) {
        const HeapBytes released(HeapPointer());
    }
    length_ = 0;
}

void ParameterValue::Assign(std::span<const std::uint8_t> bytes) {
    if (bytes.size() != length_) {
        // Kept until the end, since the bytes may lie within it.
        const ParameterValue previous = std::move(*this);
        Allocate(bytes.size());
        Copy(bytes.data(), bytes.size());
    } else {
        Copy(bytes.data(), bytes.size());
    }
}

void ParameterValue::StoreText(std::string_view text) {
    const std::string_view kept = text.substr(0, text.find('\0'));
    const ParameterValue previous = std::move(*this);
    Allocate(kept.size() + 1);
    Copy(kept.data(), kept.size());
    MutableData()[kept.size()] = 0;
}

std::string_view ParameterValue::LoadText() const {
    if (length_ == 0) {
        return {};
    }
    return {reinterpret_cast<const char*>(Data()), length_ - 1};
}

std::uint8_t* ParameterValue::HeapPointer() const {
    std::uint8_t* pointer;
    std::memcpy(&pointer, storage_.data(), sizeof pointer);
    return pointer;
}

void ParameterValue::Allocate(std::size_t length) {
    if (length > std::numeric_limits<std::uint32_t>::max()) {
        throw std::bad_alloc();
    }
    if (length > kInlineCapacity) {
        std::uint8_t* const pointer =
            std::make_unique_for_overwrite<std::uint8_t[]>(length).release();
        std::memcpy(storage_.data(), &pointer, sizeof pointer);
    }
    length_ = static_cast<std::uint32_t>(length);
}

void ParameterValue::Copy(const void* bytes, std::size_t count) {
    if (count != 0) {
        std::memmove(MutableData(), bytes, count);
    }
}

void ParameterValue::TakeFrom(ParameterValue& other) noexcept {
    storage_ = other.storage_;
    length_ = std::exchange(other.length_, 0);
}

}  // namespace orvell::paramlist
