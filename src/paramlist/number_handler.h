#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "paramlist/strict_number.h"
#include "paramlist/value_type_handler.h"

namespace orvell::paramlist {

/// What the handlers of all numbers share: an undefined value has its own texts, and every other
/// one is a `Stored` that the derived classes read and print.
template <typename Stored>
class NumberHandler : public ValueTypeHandler {
  public:
    bool SetFromListText(ParameterValue& value, std::string_view text,
                         const ValueTexts& texts) const override {
        if (text == texts.undefined) {
            value.Clear();
        } else {
            value.Store(ReadListText(text));
        }
        return true;
    }

    bool SetFromCsvText(ParameterValue& value, std::string_view text,
                        const ValueTexts& texts) const override {
        const std::string_view trimmed = TrimBlanks(text);
        if (trimmed.empty()) {
            value.Clear();
            return true;
        }
        const std::optional<Stored> stored = ReadCsvText(trimmed, texts);
        if (stored) {
            value.Store(*stored);
        }
        return stored.has_value();
    }

    bool SetFromText(ParameterValue& value, std::optional<std::string_view> text) const override {
        value.Store(ReadText(text.value_or(std::string_view())));
        return true;
    }

    void FormatListText(const ParameterValue& value, const ValueTexts& texts,
                        std::string& out) const override {
        if (!GetText(value, out)) {
            out += texts.undefined;
        }
    }

    void FormatCsvField(const ParameterValue& value, const ValueTexts& texts,
                        std::string& out) const override {
        const std::optional<Stored> stored = value.Load<Stored>();
        if (stored) {
            AppendCsvField(*stored, texts, out);
        } else {
            AppendUndefinedCsvField(out);
        }
    }

    bool GetText(const ParameterValue& value, std::string& out) const override {
        const std::optional<Stored> stored = value.Load<Stored>();
        if (stored) {
            AppendText(*stored, out);
        }
        return stored.has_value();
    }

  protected:
    static constexpr char kSeparator = ';';

    /// The number that the text spells; 0 for one that spells none.
    [[nodiscard]] virtual Stored ReadText(std::string_view text) const = 0;

    /// As `ReadText` for a text from a list file.
    [[nodiscard]] virtual Stored ReadListText(std::string_view text) const {
        return ReadText(text);
    }

    /// The number that a text without blanks around it spells; none when it is rejected.
    [[nodiscard]] virtual std::optional<Stored> ReadCsvText(std::string_view text,
                                                            const ValueTexts& texts) const = 0;

    virtual void AppendText(Stored stored, std::string& out) const = 0;

    virtual void AppendCsvField(Stored stored, const ValueTexts& texts, std::string& out) const = 0;

    virtual void AppendUndefinedCsvField(std::string& out) const { out += kSeparator; }
};

}  // namespace orvell::paramlist
