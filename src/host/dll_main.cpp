#include <windows.h>

#include "host/guard.h"
#include "host/module.h"
#include "platform/module_hold.h"

namespace orvell::host {

namespace {

bool Start(HINSTANCE instance) noexcept {
    return Guarded<bool>(false, [instance] {
        OrvellApp& app = TheModule().app;
        app.SetInstance(instance);
        const bool started = Guarded<bool>(false, [&app] { return app.InitInstance(); });
        if (!started) {
            app.ExitInstance();
        }
        return started;
    });
}

/// `processEnds`: the process is going down, its other threads are gone and its other libraries may
/// be as well.
void Stop(bool processEnds) noexcept {
    if (!processEnds) {
        platform::AwaitReturnOfHolder();
    }
    Guarded([processEnds] {
        OrvellApp& app = TheModule().app;
        if (processEnds) {
            app.Abandon();
        } else {
            app.ExitInstance();
        }
    });
}

}  // namespace

}  // namespace orvell::host

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved) {
    switch (reason) {
        case DLL_PROCESS_ATTACH:
            DisableThreadLibraryCalls(instance);
            return orvell::host::Start(instance) ? TRUE : FALSE;
        case DLL_PROCESS_DETACH:
            orvell::host::Stop(reserved != nullptr);
            return TRUE;
        default:
            return TRUE;
    }
}
