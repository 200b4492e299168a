#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace orvell::ui {

/// The dialogs and images of the module. They are read from the language library where it has them,
/// else from the module itself: a library of texts only still leaves the dialogs usable.
class DialogResources {
  public:
    /// `languageModule` may be `instance` itself or null.
    DialogResources(HINSTANCE instance, HMODULE languageModule)
        : instance_(instance), languageModule_(languageModule) {}

    /// The module in whose name windows are created.
    [[nodiscard]] HINSTANCE Instance() const { return instance_; }

    /// The template with this number, null when there is none. Lives as long as its module.
    [[nodiscard]] const DLGTEMPLATE* FindDialog(int number) const;

    struct DestroyIcon {
        void operator()(HICON icon) const { ::DestroyIcon(icon); }
    };
    using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, DestroyIcon>;

    /// The image with this number at the system's size for large or small window symbols.
    [[nodiscard]] Icon LoadWindowSymbol(int number, bool isLarge) const;

  private:
    HINSTANCE instance_;
    HMODULE languageModule_;
};

}  // namespace orvell::ui
