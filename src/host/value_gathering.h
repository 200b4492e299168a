#pragma once

#include <cstdint>
#include <string_view>

#include "memstruct/type_model.h"
#include "orvell/orvell.h"
#include "paramlist/parameter_list.h"
#include "values/value_converter_set.h"

namespace orvell::host {

/// The value that is to be gathered.
struct GatheredValue {
    const memstruct::TypeDef& type;
    std::uint32_t count;        ///< elements; below 2 a single value
    values::ValueBuffer bytes;  ///< zeroed room for all of them
};

/// Stores every text of the name list into the leaf that its path names; leaves without a text stay
/// zero. Paths and texts are those of the leaf list of a value. Of leaves with one path each takes
/// the path's next text, or its last one; further texts replace that of the last leaf. False when a
/// path is unknown or a text spells no value of its leaf; some leaves may have been stored then.
[[nodiscard]] bool GatherFromTexts(const GatheredValue& value, const NameListNode* texts,
                                   const values::ValueConverterSet& converters);

/// Stores into the leaves, in their order, the parameters of consecutive numbers (modulo 2^32) from
/// the address on. Texts take the parameter's text, floating-point leaves its number, all others
/// its integer, zero-extended or cut to their width. A parameter that does not exist or gives no
/// such value leaves its leaf zero. False for an address of an unknown kind.
[[nodiscard]] bool GatherFromList(const GatheredValue& value, std::string_view address,
                                  paramlist::ParameterList& list,
                                  const values::ValueConverterSet& converters);

}  // namespace orvell::host
