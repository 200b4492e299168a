#pragma once

#include "exhaustive/check.h"

namespace orvell::exhaustive {

// The unsigned 32-bit counts. The value's number is the count; neighbours with one text have it
// read back once, and what must come back is the count without what the text does not show.

void CheckDurations(const values::ValueConverterSet& converters, Range values,
                    Differences& differences);
void CheckTimes(const values::ValueConverterSet& converters, Range values,
                Differences& differences);
void CheckDatesDayFirst(const values::ValueConverterSet& converters, Range values,
                        Differences& differences);
void CheckDatesMonthFirst(const values::ValueConverterSet& converters, Range values,
                          Differences& differences);
void CheckDateTimesDayFirst(const values::ValueConverterSet& converters, Range values,
                            Differences& differences);
void CheckDateTimesMonthFirst(const values::ValueConverterSet& converters, Range values,
                              Differences& differences);

}  // namespace orvell::exhaustive
