#include "paramlist/double_handlers.h"

#include <algorithm>
#include <limits>

#include "values/double_text.h"
#include "values/ole_date_time_text.h"

namespace orvell::paramlist {
namespace {

constexpr int kListDigits = 15;
constexpr int kCsvDigits = 16;
constexpr std::string_view kNextQuotedColumn = "\";\"";

}  // namespace

bool DoubleHandler::SetFromDouble(ParameterValue& value, double number) const {
    value.Store(number);
    return true;
}

bool DoubleHandler::GetDouble(const ParameterValue& value, double& number) const {
    const std::optional<double> stored = value.Load<double>();
    number = stored.value_or(0.0);
    return stored.has_value();
}

double DoubleHandler::ReadText(std::string_view text) const {
    return values::ReadDouble(text);
}

double DoubleHandler::ReadListText(std::string_view text) const {
    const std::optional<double> nonFinite = ReadNonFinite(text);
    return nonFinite ? *nonFinite : values::ReadDouble(text);
}

void DoubleHandler::AppendText(double stored, std::string& out) const {
    values::AppendGeneral(out, stored, kListDigits);
}

std::optional<double> DoubleHandler::ReadNonFinite(std::string_view text) {
    using Limits = std::numeric_limits<double>;
    if (text == "inf") {
        return Limits::infinity();
    }
    if (text == "-inf") {
        return -Limits::infinity();
    }
    return text == "nan" ? std::optional(Limits::quiet_NaN()) : std::nullopt;
}

std::optional<double> FloatHandler::ReadCsvText(std::string_view text,
                                                const ValueTexts& /*texts*/) const {
    const std::optional<double> number = ReadStrictDouble(text);
    return number ? number : ReadNonFinite(text);
}

void FloatHandler::AppendCsvField(double stored, const ValueTexts& /*texts*/,
                                  std::string& out) const {
    const auto start = static_cast<std::ptrdiff_t>(out.size());
    values::AppendGeneral(out, stored, kCsvDigits);
    std::replace(out.begin() + start, out.end(), '.', ',');
    out += kSeparator;
}

std::optional<double> OleDateTimeHandler::ReadCsvText(std::string_view text,
                                                      const ValueTexts& texts) const {
    return values::ReadOleDateTime(text, texts.csvDateFormat);
}

void OleDateTimeHandler::AppendCsvField(double stored, const ValueTexts& texts,
                                        std::string& out) const {
    out += '"';
    const std::size_t start = out.size();
    values::AppendOleDateTime(out, stored, texts.csvDateFormat);
    std::replace(out.begin() + static_cast<std::ptrdiff_t>(start), out.end(), ',', ';');
    const std::size_t blank = out.find(' ', start);
    if (blank != std::string::npos) {
        out.replace(blank, 1, kNextQuotedColumn);
    } else {
        out.insert(start, kNextQuotedColumn);
    }
    out += '"';
}

void OleDateTimeHandler::AppendUndefinedCsvField(std::string& out) const {
    out += '"';
    out += kNextQuotedColumn;
    out += '"';
}

}  // namespace orvell::paramlist
