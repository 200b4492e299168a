#pragma once

#include "platform/library.h"

namespace orvell::host {

/// The oldest version a.b.c.d of a bound library that the module works with.
struct RequiredDllVersion {
    unsigned a;
    unsigned b;
    unsigned c;
    unsigned d;

    /// The version as libraries report it: a + b/100 + c/10000 + d/1000000.
    [[nodiscard]] double AsNumber() const;

    /// True when `reported` is at least this version, less a tolerance for rounding.
    [[nodiscard]] bool IsMetBy(double reported) const;

    /// Asks the library's `GetDLLVersion`; a library without one is refused.
    [[nodiscard]] bool IsMetBy(const platform::Library& library) const;
};

inline constexpr RequiredDllVersion kRequiredZelkorTool{3, 3, 8, 0};
inline constexpr RequiredDllVersion kRequiredXmlAccess{2, 1, 0, 0};
inline constexpr RequiredDllVersion kRequiredLanguageLibrary{2, 1, 5, 0};

}  // namespace orvell::host
