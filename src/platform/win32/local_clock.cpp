#include "platform/local_clock.h"

#include <windows.h>

namespace orvell::platform {

namespace {

class SystemClock final : public LocalClock {
  public:
    CivilTime Now() const override {
        SYSTEMTIME now{};
        GetLocalTime(&now);
        return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
    }
};

}  // namespace

const LocalClock& SystemLocalClock() {
    static const SystemClock clock;
    return clock;
}

}  // namespace orvell::platform
