#pragma once

#include "resources/string_table.h"

namespace orvell::test {

/// Has the table read every text that there is, which it keeps: what is held then does not depend
/// on which of them have been needed.
inline void LoadAllTexts(const resources::StringTable& strings) {
    for (const resources::StringId id : resources::kAllStringIds) {
        static_cast<void>(strings.Text(id));
    }
}

}  // namespace orvell::test
