#pragma once

#include <string>

#include "unit/memstruct/fake_xml_text.h"

namespace orvell::fuzz {

/// The destination's tree as a text after everything that the source has and it lacks was added, by
/// looking through all lists for every name and ID.
[[nodiscard]] std::string ExpectedMerge(const test::FakeDocument& source,
                                        const test::FakeDocument& destination);

/// A tree as a text, its elements and attributes only.
[[nodiscard]] std::string TreeText(const test::FakeDocument& document);

}  // namespace orvell::fuzz
