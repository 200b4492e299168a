#pragma once

#include "fuzz/files/plain_list.h"
#include "fuzz/input.h"
#include "paramlist/parameter_list.h"

namespace orvell::fuzz {

/// Some lists for one input, with the German kinds and no entries. They are the same for all
/// inputs, cleared: drawing the random numbers of new ones would take longer than all else.
enum class Place {
    Start,               ///< made from the input, or read from it
    StartInPortions,     ///< read from it in portions
    Changed,             ///< what reading the input has changed
    ReadBack,            ///< read from what was written
    ReadBackInPortions,  ///< read from it in portions
    ReadBackAgain,       ///< read from what was written of what had been read back
};
[[nodiscard]] paramlist::ParameterList& EmptyList(Place place);

/// Fills a list without entries from the input: any kinds and numbers, several entries of one
/// number too, names and texts of any bytes, values of all bits that their types allow; undefined
/// ones among them. The project's name is the input's as well.
void MakeList(paramlist::ParameterList& list, Input& input);

/// Adds a text so long, made of the project's name, that writers write more than once.
void MakeLong(paramlist::ParameterList& list);

/// Adds what an import finds to change: of each kind the numbers 1 and 12, of one a number twice,
/// with flags, texts and values.
void AddOldEntries(paramlist::ParameterList& list);

/// Adds the entries of `list` that are not in `before`, which has few, with all that belongs to
/// them but their flags.
void AddChanged(paramlist::ParameterList& to, const PlainList& list, const PlainList& before);

}  // namespace orvell::fuzz
