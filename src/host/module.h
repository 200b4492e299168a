#pragma once

#include <cstdint>

#include "host/call_token_guard.h"
#include "host/host_callbacks.h"
#include "host/orvell_app.h"
#include "memstruct/config_files.h"
#include "memstruct/memory_structure_store.h"
#include "memstruct/xml_access_binding.h"
#include "paramlist/parameter_list.h"
#include "paramlist/project_list.h"
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
    paramlist::ParameterList parameters;
    paramlist::ProjectList projectList;
    HostCallbacks callbacks;
    OrvellApp app;
    platform::MessageBoxes& messageBoxes;
    const platform::Registry& registry;
    platform::ProcessStarter& processes;
    ui::ParameterEditor* editor;

    /// The last change token that a configuration slot has acted on. The host sends one request to
    /// several modules, or twice, under one token.
    std::uint32_t configCallStamp = 0;

    /// The same for the parameter-management table, which gets its tokens in a call of their own.
    CallTokenGuard callTokens;
};

/// The module's state; created at the first use, which is the loading of the DLL.
[[nodiscard]] Module& TheModule();

}  // namespace orvell::host
