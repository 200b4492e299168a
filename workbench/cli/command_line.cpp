#include "cli/command_line.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <ranges>

#include "cli/command_options.h"

namespace workbench::cli {
namespace {

constexpr std::array kCommands{
    CommandSyntax{Command::Areas, "areas", "PROJECT", 1, false},
    CommandSyntax{Command::Size, "size", "PROJECT ID", 2, false},
    CommandSyntax{Command::Text, "text", "PROJECT ID HEX|@FILE", 3, true},
    CommandSyntax{Command::Leaves, "leaves", "PROJECT ID HEX|@FILE", 3, true},
    CommandSyntax{Command::Check, "check", "PROJECT ID HEX|@FILE", 3, true},
    CommandSyntax{Command::Edit, "edit", "PROJECT ID [HEX|@FILE]", 2, true},
    CommandSyntax{Command::Read, "read", "PROJECT ID", 2, false},
    CommandSyntax{Command::Write, "write", "PROJECT ID HEX|@FILE", 3, true},
    CommandSyntax{Command::Merge, "merge", "PROJECT DIRECTORY", 2, false},
    CommandSyntax{Command::Export, "export", "PROJECT DIRECTORY", 2, false},
    CommandSyntax{Command::Save, "save", "PROJECT NEWPROJECT", 2, false},
    CommandSyntax{Command::ListShow, "list show", "PROJECT [KIND]", 1, false, 1},
    CommandSyntax{Command::ListGet, "list get", "PROJECT ADDRESS", 2, false},
    CommandSyntax{Command::ListSet, "list set", "PROJECT ADDRESS TEXT", 3, false},
    CommandSyntax{Command::ListDeclare, "list declare", "PROJECT FILE", 2, false},
    CommandSyntax{Command::ListExport, "list export", "PROJECT FILE", 2, false},
    CommandSyntax{Command::ListImport, "list import", "PROJECT FILE", 2, false},
};

/// The first word of the commands that have two.
constexpr std::string_view kListWord = "list";

const CommandSyntax* FindCommand(std::string_view word) {
    const auto found = std::ranges::find(kCommands, word, &CommandSyntax::word);
    return found == kCommands.end() ? nullptr : &*found;
}

/// Reads options and arguments word by word.
class Parser {
  public:
    Parser(std::span<const std::string> words, CommandLine& result, std::string& error)
        : words_(words), result_(result), error_(error) {}

    bool Parse() {
        while (position_ < words_.size()) {
            const std::string& word = words_[position_++];
            if (!(word.starts_with("--")
                      ? TakeOption(word, words_.subspan(position_), result_, position_, error_)
                      : TakeArgument(word))) {
                return false;
            }
        }
        return result_.help || IsComplete();
    }

  private:
    bool Fail(std::string error) {
        error_ = std::move(error);
        return false;
    }

    bool TakeArgument(const std::string& word) {
        if (syntax_ != nullptr) {
            result_.arguments.push_back(word);
            return true;
        }
        if (word != kListWord) {
            return TakeCommand(word);
        }
        const bool isAlone = position_ == words_.size() || words_[position_].starts_with("--");
        return isAlone || TakeCommand(word + " " + words_[position_++]);
    }

    bool TakeCommand(const std::string& word) {
        syntax_ = FindCommand(word);
        if (syntax_ == nullptr) {
            return Fail("There is no command \"" + word + "\". Commands: " +
                        Alternatives(kCommands | std::views::transform(&CommandSyntax::word)) +
                        ".");
        }
        result_.command = syntax_->command;
        return true;
    }

    bool IsComplete() {
        if (syntax_ == nullptr) {
            return Fail("A command is missing. See workbench --help.");
        }
        const std::size_t given = result_.arguments.size();
        if (given < syntax_->argumentCount ||
            (given > syntax_->argumentCount + syntax_->optionalCount && !syntax_->takesValue)) {
            return Fail("The command is: workbench " + std::string(syntax_->word) + " " +
                        std::string(syntax_->arguments));
        }
        return true;
    }

    std::span<const std::string> words_;
    std::size_t position_ = 0;
    const CommandSyntax* syntax_ = nullptr;
    CommandLine& result_;
    std::string& error_;
};

}  // namespace

std::span<const CommandSyntax> AllCommands() {
    return kCommands;
}

bool ParseCommandLine(std::span<const std::string> words, CommandLine& result, std::string& error) {
    result = {};
    return Parser(words, result, error).Parse();
}

std::optional<std::uint32_t> ParseNumber(std::string_view text) {
    std::uint32_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, problem] = std::from_chars(text.data(), end, number);
    return problem == std::errc{} && stop == end ? std::optional(number) : std::nullopt;
}

}  // namespace workbench::cli
