#include "platform/process_start.h"

#include <windows.h>

namespace orvell::platform {

namespace {

class SystemProcesses final : public ProcessStarter {
  public:
    bool Start(const std::string& commandLine) override {
        constexpr UINT kLastErrorCode = 31;
        return WinExec(commandLine.c_str(), SW_SHOWDEFAULT) > kLastErrorCode;
    }
};

}  // namespace

ProcessStarter& SystemProcessStarter() {
    static SystemProcesses processes;
    return processes;
}

}  // namespace orvell::platform
