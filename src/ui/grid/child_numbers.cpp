#include "ui/grid/child_numbers.h"

#include <algorithm>
#include <memory>
#include <new>

namespace orvell::ui {

HRESULT ChildNumbers::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) {
        return E_POINTER;
    }
    const bool isKnown = iid == IID_IUnknown || iid == IID_IEnumVARIANT;
    *object = isKnown ? this : nullptr;
    if (!isKnown) {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

ULONG ChildNumbers::AddRef() {
    return ++references_;
}

ULONG ChildNumbers::Release() {
    const ULONG left = --references_;
    if (left == 0) {
        const std::unique_ptr<ChildNumbers> ended(this);
    }
    return left;
}

HRESULT ChildNumbers::Next(ULONG wanted, VARIANT* numbers, ULONG* fetched) {
    if (numbers == nullptr || (fetched == nullptr && wanted != 1)) {
        return E_INVALIDARG;
    }
    const ULONG given = std::min(wanted, count_ - position_);
    for (ULONG i = 0; i < given; ++i) {
        VariantInit(&numbers[i]);
        numbers[i].vt = VT_I4;
        numbers[i].lVal = first_ + step_ * static_cast<LONG>(position_ + i);
    }
    position_ += given;
    if (fetched != nullptr) {
        *fetched = given;
    }
    return given == wanted ? S_OK : S_FALSE;
}

HRESULT ChildNumbers::Skip(ULONG passedOver) {
    const ULONG skipped = std::min(passedOver, count_ - position_);
    position_ += skipped;
    return skipped == passedOver ? S_OK : S_FALSE;
}

HRESULT ChildNumbers::Reset() {
    position_ = 0;
    return S_OK;
}

HRESULT ChildNumbers::Clone(IEnumVARIANT** copy) {
    if (copy == nullptr) {
        return E_POINTER;
    }
    auto* const made = new (std::nothrow) ChildNumbers(first_, step_, count_);
    *copy = made;
    if (made == nullptr) {
        return E_OUTOFMEMORY;
    }
    made->position_ = position_;
    return S_OK;
}

}  // namespace orvell::ui
