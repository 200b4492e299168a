#include "resources/string_table.h"

namespace orvell::resources {

void StringTable::UseSource(const platform::StringSource& source) {
    source_ = &source;
    texts_.clear();
}

const std::string& StringTable::Text(StringId id) const {
    auto known = texts_.find(id);
    if (known == texts_.end()) {
        known = texts_.emplace(id, source_->Load(static_cast<std::uint32_t>(id))).first;
    }
    return known->second;
}

}  // namespace orvell::resources
