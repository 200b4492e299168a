#include "paramlist/integer32_handlers.h"

#include "paramlist/integer_reading.h"
#include "values/clock_text.h"
#include "values/date_text.h"
#include "values/number_text.h"

namespace orvell::paramlist {

template <typename Stored>
bool Integer32Handler<Stored>::SetFromDword(ParameterValue& value, std::uint32_t dword) const {
    value.Store(dword);
    return true;
}

template <typename Stored>
bool Integer32Handler<Stored>::SetFromDouble(ParameterValue& value, double number) const {
    value.Store(static_cast<Stored>(TruncateToInteger(number)));
    return true;
}

template <typename Stored>
bool Integer32Handler<Stored>::GetDword(const ParameterValue& value, std::uint32_t& dword) const {
    const std::optional<std::uint32_t> stored = value.Load<std::uint32_t>();
    dword = stored.value_or(0);
    return stored.has_value();
}

template <typename Stored>
bool Integer32Handler<Stored>::GetDouble(const ParameterValue& value, double& number) const {
    const std::optional<Stored> stored = value.Load<Stored>();
    // By way of a signed integer: the conversion of an unsigned one may add in the x87 unit.
    number = static_cast<double>(std::int64_t{stored.value_or(0)});
    return stored.has_value();
}

template <typename Stored>
Stored Integer32Handler<Stored>::ReadText(std::string_view text) const {
    return static_cast<Stored>(values::ReadDecimal32(text));
}

template <typename Stored>
std::optional<Stored> Integer32Handler<Stored>::ReadCsvText(std::string_view text,
                                                            const ValueTexts& /*texts*/) const {
    return ReadIntegerWithin<Stored>(text);
}

template <typename Stored>
void Integer32Handler<Stored>::AppendText(Stored stored, std::string& out) const {
    values::AppendSigned(out, static_cast<std::int32_t>(stored));
}

template <typename Stored>
void Integer32Handler<Stored>::AppendCsvField(Stored stored, const ValueTexts& /*texts*/,
                                              std::string& out) const {
    values::AppendSigned(out, stored);
    out += this->kSeparator;
}

template class Integer32Handler<std::int32_t>;
template class Integer32Handler<std::uint32_t>;

std::optional<std::uint32_t> DateHandler::ReadCsvText(std::string_view text,
                                                      const ValueTexts& texts) const {
    const auto reading = values::ReadDate(text, texts.csvDateFormat);
    if (!reading || reading->end != text.size()) {
        return std::nullopt;
    }
    return values::SecondsOfDate(reading->date);
}

void DateHandler::AppendCsvField(std::uint32_t stored, const ValueTexts& texts,
                                 std::string& out) const {
    values::AppendDate(out, values::DateOfSeconds(stored), texts.csvDateFormat);
    out += kSeparator;
}

std::optional<std::uint32_t> TimeOfDayHandler::ReadCsvText(std::string_view text,
                                                           const ValueTexts& /*texts*/) const {
    const auto reading = values::ReadClockAndEnd(text, 0);
    if (!reading || reading->end != text.size()) {
        return std::nullopt;
    }
    return values::SecondsOfDay(reading->clock);
}

void TimeOfDayHandler::AppendCsvField(std::uint32_t stored, const ValueTexts& /*texts*/,
                                      std::string& out) const {
    values::AppendClock(out, values::ClockOfSeconds(stored));
    out += kSeparator;
}

std::optional<std::uint32_t> DateAndTimeHandler::ReadCsvText(std::string_view text,
                                                             const ValueTexts& texts) const {
    const auto date = values::ReadDate(text, texts.csvDateFormat);
    const std::uint32_t secondsOfDate = date ? values::SecondsOfDate(date->date) : 0;
    if (date && date->end == text.size()) {
        return secondsOfDate;
    }
    const auto reading = values::ReadClockAndEnd(text, date ? date->end : 0);
    if (!reading || reading->end != text.size()) {
        return std::nullopt;
    }
    return secondsOfDate + values::SecondsOfClock(reading->clock);
}

void DateAndTimeHandler::AppendCsvField(std::uint32_t stored, const ValueTexts& texts,
                                        std::string& out) const {
    values::AppendDate(out, values::DateOfSeconds(stored), texts.csvDateFormat);
    out += kSeparator;
    values::AppendClock(out, values::ClockOfSeconds(stored));
}

}  // namespace orvell::paramlist
