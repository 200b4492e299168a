#include "cli/command_options.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace workbench::cli {
namespace {

struct Flag {
    std::string_view option;
    bool CommandLine::*place;
    bool value;
};
constexpr std::array kFlags{
    Flag{"--help", &CommandLine::help, true},     Flag{"--bare", &CommandLine::bare, true},
    Flag{"--quoted", &CommandLine::bare, false},  Flag{"--vector", &CommandLine::vector, true},
    Flag{"--online", &CommandLine::online, true}, Flag{"--replace", &CommandLine::replace, true},
};

struct NumberOption {
    std::string_view option;
    std::string_view what;
    std::optional<std::uint32_t> CommandLine::*place;
};
constexpr std::array kNumbers{
    NumberOption{"--count", "number of values", &CommandLine::count},
    NumberOption{"--box-width", "width", &CommandLine::boxWidth},
    NumberOption{"--delay", "number of milliseconds", &CommandLine::delay},
    NumberOption{"--cancel-after", "number of values", &CommandLine::cancelAfter},
};

struct TextOption {
    std::string_view option;
    std::optional<std::string> CommandLine::*place;
};
constexpr std::array kTexts{
    TextOption{"--name", &CommandLine::name},     TextOption{"--comment", &CommandLine::comment},
    TextOption{"--into", &CommandLine::into},     TextOption{"--script", &CommandLine::script},
    TextOption{"--refuse", &CommandLine::refuse},
};

constexpr std::string_view kFormatOption = "--format";
constexpr std::array<std::string_view, 4> kFormats{"default", "signed", "unsigned", "hex"};
constexpr std::string_view kLanguageOption = "--language";
constexpr std::array<std::string_view, 2> kLanguages{"de", "en"};

/// The option's line in a table, null when it has none.
template <typename Options>
const auto* Find(const Options& options, std::string_view option) {
    const auto found =
        std::ranges::find_if(options, [&](const auto& line) { return line.option == option; });
    return found == options.end() ? nullptr : &*found;
}

bool NeedsValue(std::string_view option) {
    return Find(kNumbers, option) != nullptr || Find(kTexts, option) != nullptr ||
           option == kFormatOption || option == kLanguageOption;
}

bool TakeNumber(const NumberOption& number, const std::string& value, CommandLine& result,
                std::string& error) {
    result.*number.place = ParseNumber(value);
    if (!(result.*number.place)) {
        error = std::string(number.option) + " needs a decimal " + std::string(number.what) +
                ", not \"" + value + "\".";
        return false;
    }
    return true;
}

template <typename Choices>
bool IsOneOf(const Choices& choices, std::string_view option, const std::string& value,
             std::string& error) {
    if (std::ranges::find(choices, value) == choices.end()) {
        error = std::string(option) + " needs one of: " + Alternatives(choices) + ".";
        return false;
    }
    return true;
}

bool TakeValue(const std::string& option, const std::string& value, CommandLine& result,
               std::string& error) {
    if (const NumberOption* number = Find(kNumbers, option)) {
        return TakeNumber(*number, value, result, error);
    }
    if (const TextOption* text = Find(kTexts, option)) {
        result.*text->place = value;
        return true;
    }
    if (option == kFormatOption) {
        const auto found = std::ranges::find(kFormats, value);
        result.format = static_cast<std::uint8_t>(found - kFormats.begin());
        return IsOneOf(kFormats, option, value, error);
    }
    result.language = value;
    return IsOneOf(kLanguages, option, value, error);
}

}  // namespace

std::string_view FormatName(std::uint8_t format) {
    return format < kFormats.size() ? kFormats[format] : kFormats.front();
}

bool TakeOption(const std::string& option, std::span<const std::string> following,
                CommandLine& result, std::size_t& taken, std::string& error) {
    if (const Flag* flag = Find(kFlags, option)) {
        result.*flag->place = flag->value;
        return true;
    }
    if (!NeedsValue(option)) {
        error = "There is no option " + option + ". See workbench --help.";
        return false;
    }
    if (following.empty()) {
        error = "The option " + option + " needs a word behind it.";
        return false;
    }
    ++taken;
    return TakeValue(option, following.front(), result, error);
}

}  // namespace workbench::cli
