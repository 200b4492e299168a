#pragma once

namespace orvell::host {

/// The application object of a DLL: what the loader's entry point calls.
///
/// `InitInstance` runs once when the DLL is loaded; when it fails, `ExitInstance` undoes what was
/// done and the DLL refuses to load. `ExitInstance` may run more than once.
class DllApplication {
  public:
    DllApplication() = default;
    DllApplication(const DllApplication&) = delete;
    DllApplication& operator=(const DllApplication&) = delete;
    virtual ~DllApplication() = default;

    /// Sets the DLL's own instance handle (HINSTANCE); it also holds the resources at first.
    void SetInstance(void* instance) {
        instance_ = instance;
        resourceHandle_ = instance;
    }

    [[nodiscard]] void* Instance() const { return instance_; }

    /// The module from which strings, dialogs and images are read.
    [[nodiscard]] void* ResourceHandle() const { return resourceHandle_; }
    void SetResourceHandle(void* module) { resourceHandle_ = module; }

    /// True when the DLL may be used.
    [[nodiscard]] virtual bool InitInstance() { return true; }

    /// Exit code of the application.
    virtual int ExitInstance() { return 0; }

  private:
    void* instance_ = nullptr;
    void* resourceHandle_ = nullptr;
};

}  // namespace orvell::host
