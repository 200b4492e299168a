#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>

namespace workbench::cli {

struct LibraryCloser {
    using pointer = HMODULE;
    void operator()(HMODULE library) const { FreeLibrary(library); }
};
using LoadedLibrary = std::unique_ptr<HMODULE, LibraryCloser>;

/// Takes a library's function. False when it has none of this name.
template <typename Function>
[[nodiscard]] bool ResolveFunction(HMODULE library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    return function != nullptr;
}

/// True when every slot behind the table's size word is filled.
template <std::size_t SlotCount, typename FunctionTable>
[[nodiscard]] bool HasAllSlots(const FunctionTable& table) {
    void* slots[SlotCount];
    std::memcpy(slots, reinterpret_cast<const std::byte*>(&table) + sizeof table.size,
                sizeof slots);
    return std::ranges::none_of(slots, [](const void* slot) { return slot == nullptr; });
}

}  // namespace workbench::cli
