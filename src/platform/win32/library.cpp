#include "platform/library.h"

#include <windows.h>

namespace orvell::platform {

namespace {

class SystemLibrary final : public Library {
  public:
    explicit SystemLibrary(HMODULE module) : module_(module) {}
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
    std::unique_ptr<Library> Load(const std::string& path) override {
        const HMODULE module = LoadLibraryA(path.c_str());
        return module == nullptr ? nullptr : std::make_unique<SystemLibrary>(module);
    }
};

}  // namespace

LibraryLoader& SystemLibraryLoader() {
    static SystemLoader loader;
    return loader;
}

}  // namespace orvell::platform
