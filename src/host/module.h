#pragma once

#include <cstdint>

#include "host/host_callbacks.h"
#include "host/orvell_app.h"
#include "memstruct/config_files.h"
#include "memstruct/memory_structure_store.h"
#include "memstruct/xml_access_binding.h"
#include "resources/string_table.h"
#include "values/value_converter_set.h"

namespace orvell::host {

/// Everything that the loaded module holds, in the order of its construction.
class Module {
  public:
    /// `system`: what the application object starts with; must outlive the module.
    explicit Module(const SystemServices& system);

    resources::StringTable strings;
    memstruct::XmlAccessBinding xml;
    values::ValueConverterSet converters;
    memstruct::MemoryStructureStore store;
    memstruct::ConfigFiles configFiles;
    HostCallbacks callbacks;
    OrvellApp app;
    platform::MessageBoxes& messageBoxes;

    /// The last change token that a configuration slot has acted on. The host sends one request to
    /// several modules, or twice, under one token.
    std::uint32_t configCallStamp = 0;
};

/// The module's state; created at the first use, which is the loading of the DLL.
[[nodiscard]] Module& TheModule();

}  // namespace orvell::host
