#pragma once

#include <array>
#include <memory>

#include "paramlist/value_type.h"
#include "paramlist/value_type_handler.h"

namespace orvell::paramlist {

/// The twelve handlers, found by value type.
class ValueTypeHandlerSet {
  public:
    ValueTypeHandlerSet();

    /// Owned by the set; null for `None` and for unknown codes.
    [[nodiscard]] const ValueTypeHandler* Find(ValueTypeCode code) const;

  private:
    std::array<std::unique_ptr<const ValueTypeHandler>, kValueTypeCount> handlers_;
};

}  // namespace orvell::paramlist
