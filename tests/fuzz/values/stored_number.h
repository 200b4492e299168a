#pragma once

#include <algorithm>
#include <cstring>

#include "fuzz/values/converter_case.h"

namespace orvell::fuzz {

/// The number in the first bytes of a value; what a shorter value lacks is zero.
template <typename Number>
Number NumberOf(const Bytes& value) {
    Number number{};
    std::memcpy(&number, value.data(), std::min(sizeof number, value.size()));
    return number;
}

/// The number's bytes, cut or filled with zeros to `width`.
template <typename Number>
Bytes BytesOf(Number number, std::size_t width = sizeof(Number)) {
    Bytes bytes(width);
    std::memcpy(bytes.data(), &number, std::min(sizeof number, width));
    return bytes;
}

}  // namespace orvell::fuzz
