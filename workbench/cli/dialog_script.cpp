#include "cli/dialog_script.h"

#include <windows.h>

#include <array>
#include <fstream>
#include <optional>
#include <sstream>
#include <string_view>

#include "cli/command_line.h"
#include "cli/key_names.h"
#include "cli/module_controls.h"
#include "common/code_page.h"

namespace workbench::cli {
namespace {

using Action = ScriptStep::Action;

struct NamedControl {
    std::string_view name;
    int number;
};
constexpr std::array kControls{
    NamedControl{"width", kBoxWidthEdit},
    NamedControl{"vector", kVectorCheck},
    NamedControl{"length", kVectorLengthEdit},
    NamedControl{"values", kValueGrid},
    NamedControl{"format", kFormatBox},
    NamedControl{"progress", kTransferProgress},
    NamedControl{"ok", IDOK},
    NamedControl{"cancel", IDCANCEL},
};

/// More than any value that is edited by script has.
constexpr std::uint32_t kLastRow = 10'000;

/// Takes the script's lines, each as one or more steps.
class ScriptReader {
  public:
    explicit ScriptReader(std::vector<ScriptStep>& steps) : steps_(steps) {}

    /// False when the line is no command.
    [[nodiscard]] bool TakeLine(std::size_t number, const std::string& line) {
        number_ = number;
        const std::size_t end = line.find(' ');
        const std::string word = line.substr(0, end);
        const std::string rest = end == std::string::npos ? std::string{} : line.substr(end + 1);
        if (word == "focus") {
            return At(rest, Action::Focus);
        }
        if (word == "await") {
            return At(rest, Action::Await);
        }
        if (word == "press") {
            return At(rest, Action::Focus) && Keys("Space");
        }
        if (word == "row") {
            return Row(rest);
        }
        if (word == "key") {
            return Keys(rest);
        }
        if (word == "type" || word == "picture") {
            Add(word == "type" ? Action::Type : Action::Picture).text = WideFromUtf8(rest);
            return !rest.empty();
        }
        return word == "pause" && Pause(rest);
    }

  private:
    ScriptStep& Add(Action action) {
        steps_.push_back({.action = action, .line = number_, .keys = {}, .text = {}});
        return steps_.back();
    }

    bool At(std::string_view name, Action action) {
        for (const NamedControl& control : kControls) {
            if (control.name == name) {
                Add(action).control = control.number;
                return true;
            }
        }
        return false;
    }

    bool Keys(const std::string& names) {
        std::istringstream words(names);
        ScriptStep& step = Add(Action::Keys);
        for (std::string name; words >> name;) {
            const auto stroke = ParseKeyStroke(name);
            if (!stroke) {
                return false;
            }
            step.keys.push_back(*stroke);
        }
        return !step.keys.empty();
    }

    bool Row(std::string_view text) {
        const auto number = ParseNumber(text);
        if (!number || *number == 0 || *number > kLastRow) {
            return false;
        }
        return At("values", Action::Focus) && Keys("Ctrl+Home") &&
               (*number == 1 || Down(*number - 1));
    }

    bool Down(std::uint32_t times) {
        Add(Action::Keys).keys.assign(times, KeyStroke{VK_DOWN, {}});
        return true;
    }

    bool Pause(std::string_view text) {
        const auto milliseconds = ParseNumber(text);
        Add(Action::Pause).milliseconds = milliseconds.value_or(0);
        return milliseconds.has_value();
    }

    std::vector<ScriptStep>& steps_;
    std::size_t number_ = 0;
};

}  // namespace

bool ReadScript(const std::string& path, std::vector<ScriptStep>& steps, std::string& error) {
    std::ifstream file(path);
    if (!file) {
        error = "The script " + path + " cannot be read. Give an existing file.";
        return false;
    }
    ScriptReader reader(steps);
    std::size_t number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        const bool isEmpty = line.empty() || line.starts_with('#');
        if (!isEmpty && !reader.TakeLine(number, line)) {
            error = "Line " + std::to_string(number) + " of the script " + path +
                    " is no command: \"" + AnsiFromWide(WideFromUtf8(line)) +
                    "\". See workbench edit --help.";
            return false;
        }
    }
    return true;
}

}  // namespace workbench::cli
