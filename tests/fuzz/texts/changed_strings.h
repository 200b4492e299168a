#pragma once

#include <cstdint>
#include <string>

#include "resources/built_in_strings.h"
#include "resources/string_ids.h"

namespace orvell::fuzz {

/// The German texts with another one in the place of one of them.
class ChangedStrings : public platform::StringSource {
  public:
    /// `text` must outlive the source.
    ChangedStrings(resources::StringId id, const std::string& text)
        : number_(static_cast<std::uint32_t>(id)), text_(text) {}

    [[nodiscard]] std::string Load(std::uint32_t number) const override {
        static const resources::BuiltInStrings kGerman;
        return number == number_ ? text_ : kGerman.Load(number);
    }

  private:
    const std::uint32_t number_;
    const std::string& text_;
};

}  // namespace orvell::fuzz
