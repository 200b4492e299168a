#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "paramlist/parameter_value.h"
#include "paramlist/value_texts.h"

namespace orvell::paramlist {

/// Reads and writes the values of one value type. Handlers have no state of their own.
///
/// Every setter returns whether it has set the value; one that fails leaves it as it was, unless
/// said otherwise. Every getter returns whether the value could be given, and writes zeros to its
/// result otherwise; an undefined value cannot be given. Formatters append to `out`. No operation
/// depends on the locale; texts are bytes in the ANSI code page. Setters may throw std::bad_alloc,
/// which leaves the value undefined.
class ValueTypeHandler {
  public:
    ValueTypeHandler() = default;
    ValueTypeHandler(const ValueTypeHandler&) = delete;
    ValueTypeHandler& operator=(const ValueTypeHandler&) = delete;
    virtual ~ValueTypeHandler() = default;

    /// True for bits, whose numbers are written as byte.bit.
    [[nodiscard]] virtual bool IsBitAddressed() const;

    /// Sets the value from a list file, where the text is read tolerantly: what spells no number
    /// counts as 0. The text for "undefined" makes the value undefined.
    virtual bool SetFromListText(ParameterValue& value, std::string_view text,
                                 const ValueTexts& texts) const = 0;

    /// Sets the value from a CSV file, whose two columns are joined by a blank. A blank text makes
    /// the value undefined. Blanks and tabs around a value are ignored, except in texts; what is
    /// not wholly a value of the type, within its limits, is rejected.
    virtual bool SetFromCsvText(ParameterValue& value, std::string_view text,
                                const ValueTexts& texts) const = 0;

    virtual bool SetFromWord(ParameterValue& value, std::uint16_t word) const;
    virtual bool SetFromDword(ParameterValue& value, std::uint32_t dword) const;
    virtual bool SetFromQword(ParameterValue& value, std::uint64_t qword) const;

    /// Integers take the truncated number's low bytes; one beyond 64 bits counts as -2^63.
    virtual bool SetFromDouble(ParameterValue& value, double number) const;

    /// Sets the value from an accessor's text, read tolerantly. An absent one counts as 0, for the
    /// text type as undefined.
    virtual bool SetFromText(ParameterValue& value, std::optional<std::string_view> text) const = 0;

    /// Appends the value as a list file has it.
    virtual void FormatListText(const ParameterValue& value, const ValueTexts& texts,
                                std::string& out) const = 0;

    /// Appends the value's CSV field with the separator that closes it. Together with the separator
    /// that the record puts behind it, it always takes two columns.
    virtual void FormatCsvField(const ParameterValue& value, const ValueTexts& texts,
                                std::string& out) const = 0;

    virtual bool GetWord(const ParameterValue& value, std::uint16_t& word) const;
    virtual bool GetDword(const ParameterValue& value, std::uint32_t& dword) const;
    virtual bool GetQword(const ParameterValue& value, std::uint64_t& qword) const;
    virtual bool GetDouble(const ParameterValue& value, double& number) const;

    /// Writes what `GetText` gives, cut to the buffer's size - 1, and a closing NUL into the
    /// buffer; an empty text when there is none. Nothing is written to an empty buffer. The result
    /// is that of `GetText`.
    [[nodiscard]] virtual bool GetTextInto(const ParameterValue& value,
                                           std::span<char> buffer) const;

    /// Appends the value as a text; nothing when it is undefined.
    virtual bool GetText(const ParameterValue& value, std::string& out) const = 0;
};

}  // namespace orvell::paramlist
