#include "cli/usage.h"

#include <initializer_list>
#include <string_view>

namespace workbench::cli {
namespace {

constexpr std::string_view kValueHelp =
    "HEX is the value as the controller stores it, two digits a byte, blanks between bytes as\n"
    "you like; @FILE takes the bytes of a file.\n"
    "  --count N    the value is a vector of N values of the area's type (default 1)\n";

constexpr std::string_view kTargetHelp =
    "The target system is simulated: the file beside the project with the extension TARGET holds\n"
    "its values.\n"
    "  --delay N           each value takes it N milliseconds\n"
    "  --refuse PATH       it refuses the value with this path, spelled as leaves does\n";

constexpr std::string_view kCancelHelp =
    "  --cancel-after N    cancels the transfer after N values, as Ctrl+C does\n";

constexpr std::string_view kEditHelp =
    "Opens the parameter dialog on a value, or on none. OK prints the new value and stores it in\n"
    "FILE, when it comes from one.\n"
    "  --vector            the value may be made a vector, or a single one\n"
    "  --format default|signed|unsigned|hex\n"
    "                      offers display formats, beginning with this one\n"
    "  --box-width N       the box width to begin with\n"
    "  --name N, --comment C\n"
    "                      shown in place of the type's name\n"
    "  --into FILE         stores the value there\n"
    "  --online            OK also writes the value to the target system; without HEX or @FILE it\n"
    "                      is read from there before\n"
    "  --script FILE       a script works the dialog by keyboard, with a command on each line:\n"
    "      focus CONTROL       goes to width, vector, length, values, format, ok or cancel\n"
    "      press CONTROL       the same, then the space bar\n"
    "      row NUMBER          goes to a row of the values, from 1\n"
    "      key KEY...          such as F2, Enter, Ctrl+Home, Alt+Down\n"
    "      type TEXT\n"
    "      await CONTROL       waits for the dialog that has it; progress: for the transfer's\n"
    "      pause MILLISECONDS\n"
    "      picture FILE.png    keeps a picture of the dialogs\n";

std::string Joined(std::initializer_list<std::string_view> texts) {
    std::string joined;
    for (const std::string_view text : texts) {
        joined += text;
    }
    return joined;
}

std::string Description(Command command) {
    switch (command) {
        case Command::Areas:
            return "Lists the memory areas of a project: ID, type, bytes of one value.\n";
        case Command::Size:
            return "Prints how many bytes one value of a memory area takes.\n";
        case Command::Text:
            return "Prints a value as text.\n"
                   "  --format default|signed|unsigned|hex    how integers are shown\n"
                   "  --quoted | --bare    STRING texts with (default) or without quotation "
                   "marks\n";
        case Command::Leaves:
            return "Prints every element of a value on a line: its path and its text as the list "
                   "file\nhas it (decimal comma).\n";
        case Command::Check:
            return "Says whether a value has all bytes that its type needs.\n"
                   "workbench check [--seed N] [--only THEME] FILE.DLL checks a build of the "
                   "module "
                   "as a\nhostile host would use it.\n";
        case Command::Edit:
            return Joined({kEditHelp, kTargetHelp});
        case Command::Read:
            return Joined(
                {"Reads a value from the target system and prints every element.\n"
                 "  --count N           a vector of N values (default 1)\n"
                 "  --into FILE         also stores the value\n",
                 kTargetHelp, kCancelHelp});
        case Command::Write:
            return Joined({"Writes a value into the target system.\n", kTargetHelp, kCancelHelp});
        case Command::Merge:
            return "Adds the types and areas in DIRECTORY's definition file of the same name to "
                   "the\nproject's own file. What the project has already stays as it is.\n";
        case Command::Export:
            return "Copies the project's definition file into DIRECTORY.\n";
        case Command::Save:
            return "Copies the project's definition file along when the project is saved as "
                   "NEWPROJECT.\n";
        case Command::ListShow:
            return "Lists the parameters, or those of one kind such as PW: address, value, name "
                   "and "
                   "comment.\nA parameter without a value has none here, nor has one with an empty "
                   "text.\n";
        case Command::ListGet:
            return "Prints one parameter. Dates and times are the numbers that are stored.\n";
        case Command::ListSet:
            return "Gives a parameter a value and saves the list. A parameter that is not there is "
                   "made.\nNumbers are read as far as they go; dates and times are the numbers to "
                   "store.\n"
                   "  --name N       also its name, at most 15 characters\n"
                   "  --comment C    also its comment, at most 30 characters\n";
        case Command::ListDeclare:
            return "Brings the list up to the project, then saves it. FILE has a line for each "
                   "parameter:\n"
                   "\"OLD NEW\" where it was and where it is now (twice the same: it stays), or "
                   "\"NEW\" for\na new one without a value. Parameters without a line are "
                   "dropped.\n";
        case Command::ListExport:
            return "Writes the list to FILE: as CSV with the extension CSV, else as list file.\n";
        case Command::ListImport:
            return "Reads FILE (CSV with the extension CSV, else a list file) into the parameters "
                   "that there\nare, then saves the list. Warnings do not change the exit code.\n"
                   "  --replace    into an emptied list; for list files only, as CSV files make no "
                   "parameters\n";
        case Command::None:
            break;
    }
    return {};
}

std::string CommandUsage(const CommandSyntax& syntax) {
    std::string text =
        "workbench " + std::string(syntax.word) + " " + std::string(syntax.arguments) + "\n\n";
    text += Description(syntax.command);
    if (syntax.takesValue) {
        text += kValueHelp;
    }
    return text;
}

std::string ProgramUsage() {
    std::string text =
        "workbench - drives Orvell from the command line, as a host would\n\n"
        "Commands (workbench COMMAND --help tells more):\n";
    for (const CommandSyntax& syntax : AllCommands()) {
        text += "  " + std::string(syntax.word) + " " + std::string(syntax.arguments) + "\n";
    }
    text +=
        "\nPROJECT is the project's file; its memory areas are defined in the file beside it with\n"
        "the extension STDMEMXML or, without one, in ORVELL.XML beside the module. Its parameter\n"
        "list is the file beside it with the extension SIL.\n\n"
        "Options for all commands:\n"
        "  --language de|en    language of the module (default: ZELKOR_LANGUAGE, else de)\n"
        "  --help\n\n"
        "Messages of the module are not shown as boxes but printed on the standard error; edit\n"
        "without a script does show them.\n"
        "Output to a file or pipe is UTF-8 with line feeds.\n\n"
        "Exit codes: 0 done; 1 the module refused or showed a message; 2 wrong command line,\n"
        "value or file name; 3 the module, its libraries or the display are missing;\n"
        "4 cancelled by the user.\n";
    return text;
}

}  // namespace

std::string Usage(Command command) {
    for (const CommandSyntax& syntax : AllCommands()) {
        if (syntax.command == command) {
            return CommandUsage(syntax);
        }
    }
    return ProgramUsage();
}

}  // namespace workbench::cli
