#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace workbench::cli {

/// A key with the keys that are held down meanwhile; virtual-key codes.
struct KeyStroke {
    std::uint16_t key = 0;
    std::vector<std::uint16_t> held;
};

/// One thing that the user of the dialog does.
struct ScriptStep {
    enum class Action {
        Focus,    ///< presses Tab until a control has the keyboard
        Keys,     ///< presses keys, one after the other
        Type,     ///< types a text
        Await,    ///< waits until a dialog with a control can be worked
        Picture,  ///< keeps a picture of all windows of the program
        Pause,    ///< waits
    };

    Action action;
    std::size_t line;                ///< in the script, from 1
    int control = 0;                 ///< Focus, Await: its number
    std::vector<KeyStroke> keys;     ///< Keys
    std::wstring text;               ///< Type: the text; Picture: the file
    std::uint32_t milliseconds = 0;  ///< Pause
};

/// Reads a script, a text file in UTF-8 with a command a line; "#" begins a comment line:
///
///     focus CONTROL     press CONTROL (focus, then the space bar)
///     row NUMBER        (focus on the values, then that row, from 1)
///     key KEY...        such as: key Ctrl+Home Down F2
///     type TEXT         picture FILE.png         pause MILLISECONDS
///     await CONTROL     (waits for a dialog with this control)
///
/// Controls: width, vector, length, values, format, progress, ok, cancel. False, with `error`
/// saying what to do, when the file cannot be read or a line is no command.
[[nodiscard]] bool ReadScript(const std::string& path, std::vector<ScriptStep>& steps,
                              std::string& error);

}  // namespace workbench::cli
