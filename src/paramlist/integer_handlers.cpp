#include "paramlist/integer_handlers.h"

#include "paramlist/integer_reading.h"
#include "values/number_text.h"

namespace orvell::paramlist {
namespace {

std::uint8_t BitOf(bool isSet) {
    return isSet ? 1 : 0;
}

}  // namespace

template <typename Stored>
bool NarrowIntegerHandler<Stored>::SetFromWord(ParameterValue& value, std::uint16_t word) const {
    value.Store(static_cast<Stored>(word));
    return true;
}

template <typename Stored>
bool NarrowIntegerHandler<Stored>::SetFromDouble(ParameterValue& value, double number) const {
    value.Store(static_cast<Stored>(TruncateToInteger(number)));
    return true;
}

template <typename Stored>
bool NarrowIntegerHandler<Stored>::GetWord(const ParameterValue& value, std::uint16_t& word) const {
    const std::optional<Stored> stored = value.Load<Stored>();
    word = static_cast<std::uint16_t>(stored.value_or(0));
    return stored.has_value();
}

template <typename Stored>
Stored NarrowIntegerHandler<Stored>::ReadText(std::string_view text) const {
    return static_cast<Stored>(values::ReadDecimal64(text));
}

template <typename Stored>
std::optional<Stored> NarrowIntegerHandler<Stored>::ReadCsvText(std::string_view text,
                                                                const ValueTexts& /*texts*/) const {
    return ReadIntegerWithin<Stored>(text);
}

template <typename Stored>
void NarrowIntegerHandler<Stored>::AppendText(Stored stored, std::string& out) const {
    values::AppendSigned(out, stored);
}

template <typename Stored>
void NarrowIntegerHandler<Stored>::AppendCsvField(Stored stored, const ValueTexts& /*texts*/,
                                                  std::string& out) const {
    values::AppendSigned(out, stored);
    out += this->kSeparator;
}

template class NarrowIntegerHandler<std::uint8_t>;
template class NarrowIntegerHandler<std::int16_t>;

bool BitHandler::IsBitAddressed() const {
    return true;
}

bool BitHandler::SetFromWord(ParameterValue& value, std::uint16_t word) const {
    value.Store(BitOf(word != 0));
    return true;
}

bool BitHandler::SetFromDouble(ParameterValue& value, double number) const {
    value.Store(BitOf(number != 0.0));
    return true;
}

std::uint8_t BitHandler::ReadText(std::string_view text) const {
    return BitOf(values::ReadDecimal64(text) != 0);
}

std::optional<std::uint8_t> BitHandler::ReadCsvText(std::string_view text,
                                                    const ValueTexts& /*texts*/) const {
    const std::optional<StrictInteger> integer = ReadStrictInteger(text);
    return integer ? std::optional(BitOf(integer->value != 0)) : std::nullopt;
}

bool Integer64Handler::SetFromQword(ParameterValue& value, std::uint64_t qword) const {
    value.Store(qword);
    return true;
}

bool Integer64Handler::GetQword(const ParameterValue& value, std::uint64_t& qword) const {
    const std::optional<std::uint64_t> stored = value.Load<std::uint64_t>();
    qword = stored.value_or(0);
    return stored.has_value();
}

std::int64_t Integer64Handler::ReadText(std::string_view text) const {
    return static_cast<std::int64_t>(values::ReadDecimalOrDouble(text));
}

std::optional<std::int64_t> Integer64Handler::ReadCsvText(std::string_view text,
                                                          const ValueTexts& /*texts*/) const {
    return ReadIntegerWithin<std::int64_t>(text);
}

void Integer64Handler::AppendText(std::int64_t stored, std::string& out) const {
    values::AppendSigned(out, stored);
}

void Integer64Handler::AppendCsvField(std::int64_t stored, const ValueTexts& /*texts*/,
                                      std::string& out) const {
    values::AppendSigned(out, stored);
    out += kSeparator;
}

}  // namespace orvell::paramlist
