#include "platform/library.h"

#include <windows.h>

#include <utility>

namespace orvell::platform {

namespace {

class SystemLibrary final : public Library {
  public:
    explicit SystemLibrary(const std::string& path) : module_(LoadLibraryA(path.c_str())) {}
    ~SystemLibrary() override {
        if (module_ != nullptr) {
            FreeLibrary(module_);
        }
    }

    void* Find(const char* symbol) const override {
        return module_ == nullptr ? nullptr
                                  : reinterpret_cast<void*>(GetProcAddress(module_, symbol));
    }

    void* Handle() const override { return module_; }

    void Abandon() override { module_ = nullptr; }

  private:
    HMODULE module_;
};

class SystemLoader final : public LibraryLoader {
  public:
    /// The object's memory is taken before the library is loaded: when it is short, none stays.
    std::unique_ptr<Library> Load(const std::string& path) override {
        auto library = std::make_unique<SystemLibrary>(path);
        return library->Handle() == nullptr ? nullptr : std::move(library);
    }
};

}  // namespace

LibraryLoader& SystemLibraryLoader() {
    static SystemLoader loader;
    return loader;
}

}  // namespace orvell::platform
