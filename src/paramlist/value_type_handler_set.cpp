#include "paramlist/value_type_handler_set.h"

#include "paramlist/double_handlers.h"
#include "paramlist/integer32_handlers.h"
#include "paramlist/integer_handlers.h"
#include "paramlist/text_handler.h"

namespace orvell::paramlist {

ValueTypeHandlerSet::ValueTypeHandlerSet()
    : handlers_{
          std::make_unique<BitHandler>(),         std::make_unique<WordHandler>(),
          std::make_unique<LongHandler>(),        std::make_unique<FloatHandler>(),
          std::make_unique<TextHandler>(),        std::make_unique<DateHandler>(),
          std::make_unique<TimeHandler>(),        std::make_unique<TimeOfDayHandler>(),
          std::make_unique<DateAndTimeHandler>(), std::make_unique<ByteHandler>(),
          std::make_unique<Integer64Handler>(),   std::make_unique<OleDateTimeHandler>(),
      } {}

const ValueTypeHandler* ValueTypeHandlerSet::Find(ValueTypeCode code) const {
    const auto number = static_cast<std::uint32_t>(code);
    return number >= 1 && number <= kValueTypeCount ? handlers_[number - 1].get() : nullptr;
}

}  // namespace orvell::paramlist
