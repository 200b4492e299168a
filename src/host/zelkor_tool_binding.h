#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "orvell/services.h"
#include "platform/library.h"

namespace orvell::host {

/// Path of ZELKORTOOL.DLL: beside the module, or in the current folder when the module's own file
/// is not known or has no folder.
[[nodiscard]] std::string ZelkorToolPath(std::string_view modulePath);

/// The host's tool library, bound by name. Fields are null (zero) while nothing is bound.
class ZelkorToolBinding {
  public:
    ZelkorToolBinding() = default;
    ZelkorToolBinding(const ZelkorToolBinding&) = delete;
    ZelkorToolBinding& operator=(const ZelkorToolBinding&) = delete;
    ~ZelkorToolBinding() { Unbind(); }

    /// Loads the library at `path`, resolves its eleven required functions, tells it the module's
    /// instance handle and asks it for the language. False, with nothing bound, when the library
    /// does not load or lacks one of the functions.
    [[nodiscard]] bool Bind(platform::LibraryLoader& loader, const std::string& path,
                            void* instance);

    /// Frees the library; nothing when nothing is bound.
    void Unbind();

    /// As `Unbind`, but leaves the library to the ending process.
    void Abandon();

    [[nodiscard]] const platform::Library* BoundLibrary() const { return library_.get(); }

    /// The user's language; 0 when the library names none.
    [[nodiscard]] std::uint32_t Language() const { return language_; }

    /// Path of the XML access library, empty when the tool library does not name one.
    [[nodiscard]] std::string XmlAccessPath() const;

    /// Path of the language resource library, empty without a language or a folder for it.
    [[nodiscard]] std::string LanguageLibraryPath() const;

  private:
    // Named as the library exports them.
    // NOLINTBEGIN(readability-identifier-naming)
    struct Functions {
        // Part of the library's contract, required to be there, not called by the module.
        void* AppendMsgLine = nullptr;
        void* EmptyMsgWnd = nullptr;
        void* CloseMsgWnd = nullptr;
        void* GetTEMPPath = nullptr;
        void* GetPathToProjectZCDForInst = nullptr;
        void* GetPathToDDFForInst = nullptr;
        void* GetPathToLibDirFile = nullptr;
        // Called by the module.
        SetBINPathFunction SetBINPath = nullptr;
        DeleteMStrBufFunction DeleteMStrBuf = nullptr;
        GetZelkorLanguageFunction GetZelkorLanguage = nullptr;
        GetZelkorLanguagePathFunction GetZelkorLanguagePath = nullptr;
    };
    // NOLINTEND(readability-identifier-naming)

    [[nodiscard]] bool ResolveRequired();

    /// The text that `call` fills in when it returns not 0; the buffer goes back in every case.
    template <typename Call>
    [[nodiscard]] std::string LentText(Call call) const;

    std::unique_ptr<platform::Library> library_;
    std::uint32_t language_ = 0;
    Functions functions_;
};

}  // namespace orvell::host
