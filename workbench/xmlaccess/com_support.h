#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string_view>

namespace workbench::xmlaccess {

/// Owns a BSTR, COM's counted UTF-16 text.
class BStr {
  public:
    BStr() = default;
    explicit BStr(std::wstring_view text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    BStr(const BStr&) = delete;
    BStr& operator=(const BStr&) = delete;
    ~BStr() { SysFreeString(text_); }

    [[nodiscard]] BSTR Get() const { return text_; }
    [[nodiscard]] std::wstring_view View() const { return {text_, SysStringLen(text_)}; }

    /// Place for a result; the text held before is freed.
    [[nodiscard]] BSTR* Receive() {
        SysFreeString(text_);
        text_ = nullptr;
        return &text_;
    }

  private:
    BSTR text_ = nullptr;
};

/// Owns a VARIANT, COM's tagged value.
class Variant {
  public:
    Variant() { VariantInit(&value_); }
    explicit Variant(bool value) : Variant() {
        value_.vt = VT_BOOL;
        value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit Variant(std::wstring_view text) : Variant() {
        value_.vt = VT_BSTR;
        value_.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }
    explicit Variant(IStream* stream) : Variant() {
        value_.vt = VT_UNKNOWN;
        value_.punkVal = stream;
        stream->AddRef();
    }
    /// A null object becomes VT_NULL, which MSXML takes for "none".
    explicit Variant(IDispatch* object) : Variant() {
        value_.vt = VT_NULL;
        if (object != nullptr) {
            value_.vt = VT_DISPATCH;
            value_.pdispVal = object;
            object->AddRef();
        }
    }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(&value_); }

    [[nodiscard]] const VARIANT& Get() const { return value_; }

    /// Place for a result; the value held before is cleared.
    [[nodiscard]] VARIANT* Receive() {
        VariantClear(&value_);
        return &value_;
    }

    /// The text, empty when the value is none.
    [[nodiscard]] std::wstring_view Text() const {
        return value_.vt == VT_BSTR
                   ? std::wstring_view(value_.bstrVal, SysStringLen(value_.bstrVal))
                   : std::wstring_view{};
    }

  private:
    VARIANT value_;
};

}  // namespace workbench::xmlaccess
