#include "fuzz/files/plain_list.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "fuzz/parameter_kinds.h"

namespace orvell::fuzz {
namespace {

using paramlist::ParameterEntry;
using paramlist::ParameterKind;
using paramlist::ParameterList;

std::string Describe(const PlainEntry& entry) {
    std::string text = entry.keyword + ' ' + std::to_string(entry.number) + " name '" + entry.name +
                       "' comment '" + entry.comment + "' value";
    for (const char byte : entry.value) {
        constexpr char kDigits[] = "0123456789ABCDEF";
        const auto bits = static_cast<unsigned char>(byte);
        text += {' ', kDigits[bits / 16], kDigits[bits % 16]};
    }
    return text + " flags " + std::to_string(entry.flags);
}

}  // namespace

PlainList PlainListOf(const ParameterList& list) {
    PlainList plain;
    for (const ParameterKind& kind : list.Kinds()) {
        kind.VisitInOrder([&](const ParameterEntry& entry) {
            const auto bytes = entry.Value().Bytes();
            plain.push_back({.keyword = kind.Keyword(),
                             .number = entry.Number(),
                             .flags = entry.Flags(),
                             .name = std::string(entry.Name()),
                             .comment = std::string(entry.Comment()),
                             .value = std::string(bytes.begin(), bytes.end())});
            return true;
        });
    }
    return plain;
}

std::string TextFromFile(std::string_view text, std::size_t limit) {
    std::string kept;
    if (text == "%%") {
        return kept;
    }
    for (const char character : text) {
        if (character == '\0' || kept.size() == limit) {
            break;
        }
        kept += character;
    }
    return kept;
}

paramlist::ValueTypeCode ValueTypeOf(std::string_view keyword) {
    const ParameterKindRow* const kind = FindParameterKind(keyword);
    return kind != nullptr ? kind->type : paramlist::ValueTypeCode::None;
}

void RequireEqual(const PlainList& found, const PlainList& expected, const char* what) {
    if (found == expected) {
        return;
    }
    const auto [first, second] =
        std::mismatch(found.begin(), found.end(), expected.begin(), expected.end());
    std::fprintf(stderr, "does not hold: %s\n found:    %s\n expected: %s\n", what,
                 first != found.end() ? Describe(*first).c_str() : "nothing",
                 second != expected.end() ? Describe(*second).c_str() : "nothing");
    std::abort();
}

}  // namespace orvell::fuzz
