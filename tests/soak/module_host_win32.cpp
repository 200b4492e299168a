#include <windows.h>

#include <filesystem>
#include <optional>

#include "boundary/message_watcher.h"
#include "failure.h"
#include "module_host.h"
#include "resources/dialog_ids.h"
#include "support/dialog_user.h"

namespace orvell::soak {

namespace {

std::filesystem::path OwnFolder() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    return std::filesystem::path(path).parent_path();
}

/// What a user does in the dialog.
void MakeVectorOfThree(const test::DialogUser& user) {
    const HWND dialog = user.Dialog(ORVELL_VALUE_GRID);
    user.OnThread([&] { SendDlgItemMessageW(dialog, ORVELL_VECTOR_CHECK, BM_CLICK, 0, 0); });
    user.SetText(dialog, ORVELL_VECTOR_LENGTH_EDIT, "3");
    user.Press(dialog, IDOK);
}

class LoadedModuleHost final : public ModuleHost {
  public:
    LoadedModuleHost() {
        boxes_.emplace();
        module_ = LoadLibraryW((OwnFolder() / "ORVELL.DLL").c_str());
        Require(module_ != nullptr, "ORVELL.DLL does not load");
        slots.size = sizeof slots;
        Export<decltype(&GetStdParaFctns)>("GetStdParaFctns")(&slots);
        list.size = sizeof list;
        Export<decltype(&GetParaMGMTFunc)>("GetParaMGMTFunc")(&list);
        setName = Export<decltype(setName)>("STDSIL_SetName");
        setComment = Export<decltype(setComment)>("STDSIL_SetComment");
        setCallbacks = Export<decltype(setCallbacks)>("SetZelkorExportFctns");
    }

    ~LoadedModuleHost() override { FreeLibrary(module_); }

    /// The watcher would take the dialog for a message box.
    std::int32_t EditAsVectorOfThree(DialogParameterRecord& record) override {
        KeepMessage();
        boxes_.reset();
        std::int32_t result = 0;
        test::WorkDialogs([&] { result = slots.EditStdParameter(&record, nullptr); },
                          MakeVectorOfThree);
        boxes_.emplace();
        return result;
    }

    [[nodiscard]] bool EditsFast() const override { return false; }

    [[nodiscard]] std::string FirstMessage() const override {
        return message_.empty() && !boxes_->Boxes().empty() ? boxes_->Boxes().front().text
                                                            : message_;
    }

  private:
    template <typename Function>
    [[nodiscard]] Function Export(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }

    void KeepMessage() { message_ = FirstMessage(); }

    HMODULE module_ = nullptr;
    std::optional<test::MessageWatcher> boxes_;
    std::string message_;
};

}  // namespace

std::unique_ptr<ModuleHost> LoadModule() {
    return std::make_unique<LoadedModuleHost>();
}

}  // namespace orvell::soak
