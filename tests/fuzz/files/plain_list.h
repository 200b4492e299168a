#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "paramlist/parameter_list.h"

namespace orvell::fuzz {

/// What the list says about one parameter, without any structure of its own.
struct PlainEntry {
    std::string keyword;
    std::uint32_t number = 0;
    std::uint32_t flags = 0;
    std::string name;
    std::string comment;
    std::string value;  ///< the stored bytes

    auto operator<=>(const PlainEntry&) const = default;
};

/// By ascending keyword and number, equal ones in the order of their insertion.
using PlainList = std::vector<PlainEntry>;

[[nodiscard]] PlainList PlainListOf(const paramlist::ParameterList& list);

/// As the readers enter names and comments: "%%" is empty; a zero byte ends the text within its
/// first `limit` bytes.
[[nodiscard]] std::string TextFromFile(std::string_view text, std::size_t limit);

/// Of the table of kinds; `None` for an unknown keyword.
[[nodiscard]] paramlist::ValueTypeCode ValueTypeOf(std::string_view keyword);

/// Ends the program when the lists differ, after printing the first difference.
void RequireEqual(const PlainList& found, const PlainList& expected, const char* what);

}  // namespace orvell::fuzz
