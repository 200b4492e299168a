#include "host/module.h"
#include "platform/library.h"
#include "platform/message_box.h"
#include "platform/module_file.h"
#include "platform/string_resources.h"

namespace orvell::host {

namespace {

std::unique_ptr<platform::StringSource> OpenStrings(void* module) {
    return std::make_unique<platform::ModuleStringSource>(module);
}

const SystemServices& WindowsServices() {
    static const SystemServices services{platform::SystemLibraryLoader(),
                                         platform::SystemMessageBoxes(), platform::ModuleFileName,
                                         OpenStrings};
    return services;
}

}  // namespace

Module& TheModule() {
    static Module module(WindowsServices());
    return module;
}

}  // namespace orvell::host
