#include "host/module.h"

#include "platform/local_clock.h"

namespace orvell::host {

namespace {

/// Stands in until the application object knows its own resources.
class NoStrings final : public platform::StringSource {
  public:
    std::string Load(std::uint32_t) const override { return {}; }
};

const NoStrings& EmptySource() {
    static const NoStrings source;
    return source;
}

}  // namespace

Module::Module(const SystemServices& system)
    : strings(EmptySource()),
      xml(strings),
      converters(platform::SystemLocalClock()),
      store(strings, xml, converters),
      configFiles(store, xml),
      parameters(strings),
      projectList(parameters, strings),
      app(system, callbacks, strings, xml, store),
      messageBoxes(system.messageBoxes),
      registry(system.registry),
      processes(system.processes),
      editor(system.editor) {}

}  // namespace orvell::host
