#include "platform/library.h"

namespace orvell::platform {

namespace {

/// The libraries of a host exist on Windows only.
class NoLibraries final : public LibraryLoader {
  public:
    std::unique_ptr<Library> Load(const std::string&) override { return nullptr; }
};

}  // namespace

LibraryLoader& SystemLibraryLoader() {
    static NoLibraries loader;
    return loader;
}

}  // namespace orvell::platform
