#pragma once

#include <memory>
#include <string>

#include "host/dll_application.h"
#include "host/host_callbacks.h"
#include "host/zelkor_tool_binding.h"
#include "memstruct/memory_structure_store.h"
#include "memstruct/xml_access_binding.h"
#include "platform/library.h"
#include "platform/message_box.h"
#include "platform/process_start.h"
#include "platform/registry.h"
#include "platform/string_resources.h"
#include "resources/string_table.h"
#include "ui/dialogs/parameter_editor.h"

namespace orvell::host {

/// What the module needs of the operating system; tests put their own in its place.
struct SystemServices {
    platform::LibraryLoader& loader;
    platform::MessageBoxes& messageBoxes;
    std::string (*moduleFileName)(void* instance);
    std::unique_ptr<platform::StringSource> (*openStrings)(void* module);
    const platform::Registry& registry = platform::SystemRegistry();
    platform::ProcessStarter& processes = platform::SystemProcessStarter();
    ui::ParameterEditor* editor = nullptr;  ///< null: no parameter can be edited
};

/// Binds, at load time and in a fixed order, the services that everything else relies on, and
/// releases them at unload. Runs under the loader's lock: it starts no thread and waits for none.
class OrvellApp final : public DllApplication {
  public:
    /// All must outlive the application.
    OrvellApp(const SystemServices& system, HostCallbacks& callbacks,
              resources::StringTable& strings, memstruct::XmlAccessBinding& xml,
              memstruct::MemoryStructureStore& store)
        : system_(system), callbacks_(callbacks), strings_(strings), xml_(xml), store_(store) {}

    /// False when ZELKORTOOL.DLL or the XML access library is missing, incomplete or too old. A
    /// missing language library is told to the user; the built-in German texts stay in use.
    [[nodiscard]] bool InitInstance() override;

    /// Releases the language library, the XML access library and ZELKORTOOL.DLL, in this order.
    int ExitInstance() override;

    /// To be called instead of `ExitInstance` when the process ends: the other libraries may be
    /// gone already, so none of them is touched.
    void Abandon();

    [[nodiscard]] const ZelkorToolBinding& Tool() const { return tool_; }

  private:
    [[nodiscard]] bool BindZelkorTool();
    [[nodiscard]] bool BindXmlAccess();
    void ChooseLanguageResources();
    [[nodiscard]] bool LoadLanguageLibrary();
    void UseOwnResources();

    SystemServices system_;
    HostCallbacks& callbacks_;
    resources::StringTable& strings_;
    memstruct::XmlAccessBinding& xml_;
    memstruct::MemoryStructureStore& store_;
    ZelkorToolBinding tool_;
    std::unique_ptr<platform::StringSource> ownStrings_;
    std::unique_ptr<platform::Library> languageLibrary_;
    std::unique_ptr<platform::StringSource> languageStrings_;
};

}  // namespace orvell::host
