#include "platform/registry.h"

#include <windows.h>

#include <algorithm>

namespace orvell::platform {

namespace {

/// A key that is open for reading, unless it could not be opened.
class OpenKey {
  public:
    OpenKey(HKEY root, const std::string& path) {
        if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, &key_) != ERROR_SUCCESS) {
            key_ = nullptr;
        }
    }
    ~OpenKey() {
        if (key_ != nullptr) {
            RegCloseKey(key_);
        }
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;

    [[nodiscard]] bool IsOpen() const { return key_ != nullptr; }
    [[nodiscard]] HKEY Get() const { return key_; }

  private:
    HKEY key_ = nullptr;
};

std::optional<std::string> ReadValue(HKEY key, const std::string& name) {
    std::string data(MAX_PATH, '\0');
    for (;;) {
        DWORD type = REG_NONE;
        auto size = static_cast<DWORD>(data.size());
        const LSTATUS status = RegQueryValueExA(key, name.c_str(), nullptr, &type,
                                                reinterpret_cast<BYTE*>(data.data()), &size);
        if (status == ERROR_MORE_DATA && size > data.size()) {
            data.resize(size);
            continue;
        }
        if (status != ERROR_SUCCESS || (type != REG_SZ && type != REG_EXPAND_SZ)) {
            return std::nullopt;
        }
        data.resize(size);
        data.resize(std::min(data.size(), data.find('\0')));  // the closing NUL may be missing
        return data;
    }
}

class SystemKeys final : public Registry {
  public:
    std::optional<std::string> ReadText(RegistryRoot root, const std::string& key,
                                        const std::string& valueName) const override {
        const OpenKey open(
            root == RegistryRoot::CurrentUser ? HKEY_CURRENT_USER : HKEY_CLASSES_ROOT, key);
        return open.IsOpen() ? ReadValue(open.Get(), valueName) : std::nullopt;
    }
};

}  // namespace

const Registry& SystemRegistry() {
    static const SystemKeys registry;
    return registry;
}

}  // namespace orvell::platform
