#pragma once

namespace orvell::platform {

/// Keeps the module loaded while one of its functions shows dialogs, and with them lets anything
/// happen: whoever unloads the module meanwhile does so at the function's return. To be the first
/// object of that function, so that nothing but the return is left behind it.
///
/// Without it the code would be gone from under the function. Holds may lie inside each other, on
/// one thread. When the system has no event, handle or thread to spare for it, the module stays
/// loaded.
class ModuleHold {
  public:
    ModuleHold();
    ~ModuleHold();
    ModuleHold(const ModuleHold&) = delete;
    ModuleHold& operator=(const ModuleHold&) = delete;
};

/// To be called first when the module is about to be unloaded: returns when the function that has
/// held it has returned to the host.
void AwaitReturnOfHolder();

}  // namespace orvell::platform
