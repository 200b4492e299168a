#include "paramlist/text_kinds.h"

namespace orvell::paramlist {

using resources::StringId;

const std::string& KindText(const resources::StringTable& strings, StringId first,
                            std::uint32_t index) {
    return strings.Text(static_cast<StringId>(static_cast<std::uint32_t>(first) + index));
}

const ParameterKind* KindAt(const ParameterList& list, const resources::StringTable& strings,
                            std::uint32_t index) {
    return list.FindKind(KindText(strings, StringId::KeywordE, index));
}

}  // namespace orvell::paramlist
