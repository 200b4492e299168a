#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/string_resources.h"

namespace orvell::resources {

/// One text of a language file.
struct LanguageText {
    std::uint32_t number;
    std::string_view text;  ///< in code page 1252
};

/// All texts of the language with this code ("de", "en"), ascending by number; none for an unknown
/// code. They live as long as the program.
[[nodiscard]] std::span<const LanguageText> LanguageTexts(std::string_view language);

/// The texts of a language file compiled into the program: the source of builds without string
/// resources.
class BuiltInStrings : public platform::StringSource {
  public:
    explicit BuiltInStrings(std::string_view language = "de") : texts_(LanguageTexts(language)) {}

    [[nodiscard]] std::string Load(std::uint32_t number) const override;

  private:
    std::span<const LanguageText> texts_;
};

}  // namespace orvell::resources
