#include "xmlaccess/xml_names.h"

#include <algorithm>

namespace workbench::xmlaccess {
namespace {

bool StartsName(wchar_t c) {
    return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || c == L'_' || c == L':' ||
           c >= 0xC0;
}

bool ContinuesName(wchar_t c) {
    return StartsName(c) || (c >= L'0' && c <= L'9') || c == L'-' || c == L'.' || c == 0xB7;
}

}  // namespace

bool IsXmlName(std::wstring_view name) {
    return !name.empty() && StartsName(name.front()) &&
           std::all_of(name.begin() + 1, name.end(), ContinuesName);
}

bool IsXmlText(std::wstring_view text) {
    return std::all_of(text.begin(), text.end(), [](wchar_t c) {
        return c >= 0x20 ? c < 0xFFFE : c == L'\t' || c == L'\n' || c == L'\r';
    });
}

std::optional<std::uint32_t> ParseUnsigned(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos) {
        return std::nullopt;
    }
    text = text.substr(first, text.find_last_not_of(L' ') + 1 - first);
    std::uint64_t value = 0;
    for (const wchar_t c : text) {
        if (c < L'0' || c > L'9') {
            return std::nullopt;
        }
        value = value * 10 + static_cast<std::uint64_t>(c - L'0');
        if (value > UINT32_MAX) {
            return std::nullopt;
        }
    }
    return static_cast<std::uint32_t>(value);
}

}  // namespace workbench::xmlaccess
