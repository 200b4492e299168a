// An editor that writes the command line it was started with into the file named by the environment
// variable FAKE_EDITOR_RECORD and then signals the event named by FAKE_EDITOR_DONE.

#include <windows.h>

#include <fstream>
#include <string>

namespace {

std::string Setting(const char* name) {
    std::string value(MAX_PATH, '\0');
    value.resize(GetEnvironmentVariableA(name, value.data(), MAX_PATH));
    return value;
}

}  // namespace

int main() {
    std::ofstream(Setting("FAKE_EDITOR_RECORD"), std::ios::binary) << GetCommandLineA();
    const HANDLE done = OpenEventA(EVENT_MODIFY_STATE, FALSE, Setting("FAKE_EDITOR_DONE").c_str());
    SetEvent(done);
    CloseHandle(done);
    return 0;
}
