#include "platform/process_start.h"

namespace orvell::platform {

namespace {

class NoProcesses final : public ProcessStarter {
  public:
    bool Start(const std::string&) override { return false; }
};

}  // namespace

ProcessStarter& SystemProcessStarter() {
    static NoProcesses processes;
    return processes;
}

}  // namespace orvell::platform
