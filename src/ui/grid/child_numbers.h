#pragma once

#include <windows.h>

#include <oaidl.h>

#include <atomic>

// COM's interfaces have no virtual destructor: objects end by their own Release.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace orvell::ui {

/// Hands out the numbers of a column of cells as variants of type VT_I4. Counted by COM; the
/// creator has the first reference.
class ChildNumbers final : public IEnumVARIANT {
  public:
    /// `count` numbers from `first` on, `step` apart.
    ChildNumbers(LONG first, LONG step, ULONG count) : first_(first), step_(step), count_(count) {}
    ChildNumbers(const ChildNumbers&) = delete;
    ChildNumbers& operator=(const ChildNumbers&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* numbers, ULONG* fetched) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG passedOver) override;
    HRESULT STDMETHODCALLTYPE Reset() override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override;

  private:
    std::atomic<ULONG> references_ = 1;
    LONG first_;
    LONG step_;
    ULONG count_;
    ULONG position_ = 0;
};

}  // namespace orvell::ui

#pragma GCC diagnostic pop
