#include "cli/key_names.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace workbench::cli {
namespace {

struct NamedKey {
    std::string_view name;
    std::uint16_t key;
};

constexpr std::array kHeldKeys{
    NamedKey{"Shift", VK_SHIFT},
    NamedKey{"Ctrl", VK_CONTROL},
    NamedKey{"Alt", VK_MENU},
};

constexpr std::array kKeys{
    NamedKey{"Tab", VK_TAB},      NamedKey{"Enter", VK_RETURN},  NamedKey{"Escape", VK_ESCAPE},
    NamedKey{"Space", VK_SPACE},  NamedKey{"Delete", VK_DELETE}, NamedKey{"Backspace", VK_BACK},
    NamedKey{"Up", VK_UP},        NamedKey{"Down", VK_DOWN},     NamedKey{"Left", VK_LEFT},
    NamedKey{"Right", VK_RIGHT},  NamedKey{"Home", VK_HOME},     NamedKey{"End", VK_END},
    NamedKey{"PageUp", VK_PRIOR}, NamedKey{"PageDown", VK_NEXT}, NamedKey{"F2", VK_F2},
    NamedKey{"F4", VK_F4},
};

template <typename Keys>
std::optional<std::uint16_t> Find(const Keys& keys, std::string_view name) {
    const auto found = std::ranges::find(keys, name, &NamedKey::name);
    return found == keys.end() ? std::nullopt : std::optional(found->key);
}

/// Letters and digits are their own key codes.
std::optional<std::uint16_t> FindKey(std::string_view name) {
    const bool isLetter = name.size() == 1 && name[0] >= 'A' && name[0] <= 'Z';
    const bool isDigit = name.size() == 1 && name[0] >= '0' && name[0] <= '9';
    return isLetter || isDigit ? std::optional(static_cast<std::uint16_t>(name[0]))
                               : Find(kKeys, name);
}

}  // namespace

std::optional<KeyStroke> ParseKeyStroke(std::string_view name) {
    KeyStroke stroke;
    for (std::size_t plus = name.find('+'); plus != std::string_view::npos; plus = name.find('+')) {
        const auto held = Find(kHeldKeys, name.substr(0, plus));
        if (!held) {
            return std::nullopt;
        }
        stroke.held.push_back(*held);
        name.remove_prefix(plus + 1);
    }
    const auto key = FindKey(name);
    stroke.key = key.value_or(0);
    return key ? std::optional(stroke) : std::nullopt;
}

}  // namespace workbench::cli
