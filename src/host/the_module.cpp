#include "host/module.h"
#include "platform/library.h"
#include "platform/message_box.h"
#include "platform/module_file.h"
#include "platform/string_resources.h"
#include "ui/dialogs/windows_parameter_editor.h"

namespace orvell::host {

namespace {

std::unique_ptr<platform::StringSource> OpenStrings(void* module) {
    return std::make_unique<platform::ModuleStringSource>(module);
}

const SystemServices& WindowsServices() {
    static ui::WindowsParameterEditor editor;
    static const SystemServices services{.loader = platform::SystemLibraryLoader(),
                                         .messageBoxes = platform::SystemMessageBoxes(),
                                         .moduleFileName = platform::ModuleFileName,
                                         .openStrings = OpenStrings,
                                         .editor = &editor};
    return services;
}

}  // namespace

Module& TheModule() {
    static Module module(WindowsServices());
    return module;
}

}  // namespace orvell::host
