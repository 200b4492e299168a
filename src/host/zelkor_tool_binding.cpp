#include "host/zelkor_tool_binding.h"

#include "platform/host_call.h"

namespace orvell::host {

using platform::CallHost;

namespace {

constexpr const char* kLibraryName = "ZELKORTOOL.DLL";
constexpr const char* kLanguageLibraryName = "ORVELLRES.DLL";

void EndWithBackslash(std::string& directory) {
    if (directory.back() != '\\') {
        directory += '\\';
    }
}

/// Resolves one function; false when the library lacks it.
template <typename Function>
bool Resolve(const platform::Library& library, const char* name, Function& function) {
    function = platform::FindFunction<Function>(library, name);
    return function != nullptr;
}

/// Gives a lent text back to the tool library however the block is left.
class LentBuffer {
  public:
    explicit LentBuffer(DeleteMStrBufFunction deleteBuffer) : deleteBuffer_(deleteBuffer) {}
    LentBuffer(const LentBuffer&) = delete;
    LentBuffer& operator=(const LentBuffer&) = delete;
    ~LentBuffer() {
        if (deleteBuffer_ != nullptr) {
            CallHost(deleteBuffer_, &buffer_);
        }
    }

    [[nodiscard]] MStrBuf* Get() { return &buffer_; }
    [[nodiscard]] std::string Text() const { return buffer_.text == nullptr ? "" : buffer_.text; }

  private:
    DeleteMStrBufFunction deleteBuffer_;
    MStrBuf buffer_{};
};

}  // namespace

std::string ZelkorToolPath(std::string_view modulePath) {
    const std::size_t end = modulePath.find_last_of("\\:");
    if (end == std::string_view::npos) {
        return std::string(".\\") + kLibraryName;
    }
    std::string path(modulePath.substr(0, end + 1));
    EndWithBackslash(path);
    return path + kLibraryName;
}

bool ZelkorToolBinding::Bind(platform::LibraryLoader& loader, const std::string& path,
                             void* instance) {
    Unbind();
    library_ = loader.Load(path);
    if (library_ == nullptr) {
        return false;
    }
    if (!ResolveRequired()) {
        Unbind();
        return false;
    }
    CallHost(functions_.SetBINPath, instance);
    language_ = CallHost(functions_.GetZelkorLanguage);
    return true;
}

bool ZelkorToolBinding::ResolveRequired() {
    const platform::Library& library = *library_;
    Functions& f = functions_;
    return Resolve(library, "AppendMsgLine", f.AppendMsgLine) &&
           Resolve(library, "EmptyMsgWnd", f.EmptyMsgWnd) &&
           Resolve(library, "CloseMsgWnd", f.CloseMsgWnd) &&
           Resolve(library, "SetBINPath", f.SetBINPath) &&
           Resolve(library, "DeleteMStrBuf", f.DeleteMStrBuf) &&
           Resolve(library, "GetTEMPPath", f.GetTEMPPath) &&
           Resolve(library, "GetPathToProjectZCDForInst", f.GetPathToProjectZCDForInst) &&
           Resolve(library, "GetPathToDDFForInst", f.GetPathToDDFForInst) &&
           Resolve(library, "GetPathToLibDirFile", f.GetPathToLibDirFile) &&
           Resolve(library, "GetZelkorLanguage", f.GetZelkorLanguage) &&
           Resolve(library, "GetZelkorLanguagePath", f.GetZelkorLanguagePath);
}

void ZelkorToolBinding::Unbind() {
    functions_ = {};
    language_ = 0;
    library_.reset();
}

void ZelkorToolBinding::Abandon() {
    if (library_ != nullptr) {
        library_->Abandon();
    }
    Unbind();
}

template <typename Call>
std::string ZelkorToolBinding::LentText(Call call) const {
    LentBuffer buffer(functions_.DeleteMStrBuf);
    return call(buffer.Get()) != 0 ? buffer.Text() : std::string();
}

std::string ZelkorToolBinding::XmlAccessPath() const {
    if (library_ == nullptr) {
        return {};
    }
    // Resolved on use: the binding does not depend on it.
    const auto getPath =
        platform::FindFunction<GetPathToXMLAccessDLLFunction>(*library_, "GetPathToXMLAccessDLL");
    if (getPath == nullptr) {
        return {};
    }
    return LentText([&](MStrBuf* buffer) { return CallHost(getPath, buffer); });
}

std::string ZelkorToolBinding::LanguageLibraryPath() const {
    if (functions_.GetZelkorLanguagePath == nullptr || language_ == 0) {
        return {};
    }
    bool named = false;
    std::string path = LentText([&](MStrBuf* buffer) {
        const std::int32_t result = CallHost(functions_.GetZelkorLanguagePath, buffer, language_);
        named = result != 0 && buffer->text != nullptr;
        return result;
    });
    if (!named) {
        return {};
    }
    if (!path.empty()) {
        EndWithBackslash(path);
    }
    return path + kLanguageLibraryName;
}

}  // namespace orvell::host
