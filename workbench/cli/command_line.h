#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace workbench::cli {

enum class Command {
    None,
    Areas,
    Size,
    Text,
    Leaves,
    Check,
    Edit,
    Read,
    Write,
    Merge,
    Export,
    Save,
    ListShow,
    ListGet,
    ListSet,
    ListDeclare,
    ListExport,
    ListImport
};

/// A command's word (two for those of the parameter list) and the arguments that it must have.
struct CommandSyntax {
    Command command;
    std::string_view word;
    std::string_view arguments;  ///< as shown in the usage line
    std::size_t argumentCount;   ///< at least so many
    bool takesValue;             ///< any number more: a value of several words
    std::size_t optionalCount = 0;
};

[[nodiscard]] std::span<const CommandSyntax> AllCommands();

/// The command line, parsed. Texts are in the ANSI code page.
struct CommandLine {
    Command command = Command::None;  ///< none: help for the whole program was asked for
    bool help = false;
    std::vector<std::string> arguments;  ///< the project comes first
    std::optional<std::string> language;

    // Values
    std::optional<std::uint32_t> count;
    std::optional<std::uint8_t> format;  ///< as in ParameterRecord
    bool bare = false;                   ///< STRING texts without quotation marks
    std::optional<std::string> into;     ///< file that takes the value

    // The dialog
    bool vector = false;  ///< with the vector controls
    std::optional<std::uint32_t> boxWidth;
    std::optional<std::string> script;

    // The target system
    bool online = false;
    std::optional<std::uint32_t> delay;        ///< milliseconds a value
    std::optional<std::uint32_t> cancelAfter;  ///< values
    std::optional<std::string> refuse;         ///< path of the value that is refused

    // The parameter list; the dialog's title has the names as well
    std::optional<std::string> name;
    std::optional<std::string> comment;
    bool replace = false;  ///< the import begins with an empty list
};

/// Parses the words after the program's name. False, with `error` saying what to do, when they
/// are no complete command.
[[nodiscard]] bool ParseCommandLine(std::span<const std::string> words, CommandLine& result,
                                    std::string& error);

/// A decimal number up to 4294967295.
[[nodiscard]] std::optional<std::uint32_t> ParseNumber(std::string_view text);

}  // namespace workbench::cli
