#pragma once

#include <new>
#include <string>
#include <string_view>

#include "ui/grid/grid_accessible.h"
#include "ui/grid/grid_control.h"
#include "ui/grid/wide_text.h"

namespace orvell::ui {

/// From the ANSI code page; null when there is no memory.
[[nodiscard]] inline BSTR MakeBstr(std::string_view text) {
    const std::wstring wide = ToWide(text);
    return SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

[[nodiscard]] inline VARIANT NumberVariant(LONG number) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_I4;
    variant.lVal = number;
    return variant;
}

/// Runs the body of a call unless the grid is gone. No exception reaches COM.
template <typename Body>
HRESULT GridAccessible::Answer(const Body& body) const {
    if (grid_ == nullptr) {
        return CO_E_OBJNOTCONNECTED;
    }
    try {
        return body();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

/// As above with the element that `child` names; E_INVALIDARG when it names none.
template <typename Body>
HRESULT GridAccessible::AnswerFor(const VARIANT& child, const Body& body) const {
    return Answer([&]() -> HRESULT {
        const std::optional<Element> element = ElementOf(child);
        return element.has_value() ? body(*element) : E_INVALIDARG;
    });
}

/// As above for a text; S_FALSE when the element has none.
template <typename Body>
HRESULT GridAccessible::AnswerText(const VARIANT& child, BSTR* text, const Body& body) const {
    if (text == nullptr) {
        return E_POINTER;
    }
    *text = nullptr;
    return AnswerFor(child, [&](const Element& element) -> HRESULT {
        const std::optional<std::string> found = body(element);
        if (!found.has_value()) {
            return S_FALSE;
        }
        *text = MakeBstr(*found);
        return *text == nullptr ? E_OUTOFMEMORY : S_OK;
    });
}

}  // namespace orvell::ui
