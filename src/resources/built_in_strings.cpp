#include "resources/built_in_strings.h"

#include <algorithm>

namespace orvell::resources {

std::string BuiltInStrings::Load(std::uint32_t number) const {
    const auto place = std::ranges::lower_bound(texts_, number, {}, &LanguageText::number);
    if (place == texts_.end() || place->number != number) {
        return {};
    }
    return std::string(place->text);
}

}  // namespace orvell::resources
