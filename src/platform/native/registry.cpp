#include "platform/registry.h"

namespace orvell::platform {

namespace {

class NoRegistry final : public Registry {
  public:
    std::optional<std::string> ReadText(RegistryRoot, const std::string&,
                                        const std::string&) const override {
        return std::nullopt;
    }
};

}  // namespace

const Registry& SystemRegistry() {
    static const NoRegistry registry;
    return registry;
}

}  // namespace orvell::platform
