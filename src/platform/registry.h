#pragma once

#include <optional>
#include <string>

namespace orvell::platform {

/// Where a key's path begins.
enum class RegistryRoot {
    CurrentUser,  ///< the settings of the logged-on user
    ClassesRoot,  ///< file types and programs
};

/// Reads the registry; tests put their own in its place.
class Registry {
  public:
    Registry() = default;
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;
    virtual ~Registry() = default;

    /// The text of a value up to its first NUL; an empty `valueName` means the key's default value.
    /// None when key or value are missing or the value is no text. The names of environment
    /// variables in an expandable text stay as they are. All texts are in the ANSI code page.
    [[nodiscard]] virtual std::optional<std::string> ReadText(
        RegistryRoot root, const std::string& key, const std::string& valueName) const = 0;
};

/// The registry of Windows; empty in the native builds.
[[nodiscard]] const Registry& SystemRegistry();

}  // namespace orvell::platform
