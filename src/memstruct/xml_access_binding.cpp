#include "memstruct/xml_access_binding.h"

#include <array>
#include <bit>

#include "platform/host_call.h"

namespace orvell::memstruct {

namespace {

/// Names of the library's functions in the order of `XmlAccessFunctions`.
constexpr std::array kFunctionNames{
    "XMLIF_Create",
    "XMLIF_Open",
    "XMLIF_ParseText",
    "XMLIF_Save",
    "XMLIF_Close",
    "XMLIF_GetLastError",
    "XMLIF_FreeMString",
    "XMLIF_FreeHandle",
    "XMLIF_GetRootNode",
    "XMLIF_AddRootNodeByName",
    "XMLIF_GetFirstChildNode",
    "XMLIF_GetNextNode",
    "XMLIF_GetChildNodeByName",
    "XMLIF_AddChildNodeByName",
    "XMLIF_InsertBeforeNode",
    "XMLIF_RemoveNode",
    "XMLIF_GetNodeName",
    "XMLIF_GetNumOfAttribs",
    "XMLIF_GetNameOfAttrib",
    "XMLIF_GetAttribValueAsString",
    "XMLIF_GetAttribValueAsULONG",
    "XMLIF_SetStringValueAttrib",
    "XMLIF_SetULONGValueAttrib",
    "XMLIF_RemoveAttrib",
    "XMLIF_GetNodeText",
    "XMLIF_SetNodeText",
};

using FunctionAddresses = std::array<void*, kFunctionNames.size()>;
static_assert(sizeof(FunctionAddresses) == sizeof(XmlAccessFunctions));

/// Calls `function` when the library is bound; 0 otherwise.
template <typename Result, typename... Parameters, typename... Arguments>
Result CallIfBound(Result(ORVELL_CALL* function)(Parameters...), Arguments... arguments) {
    return function == nullptr ? Result() : platform::CallHost(function, arguments...);
}

/// A text lent by the library, given back at the end of its scope.
class LentText {
  public:
    explicit LentText(void(ORVELL_CALL* freeText)(MString*)) : freeText_(freeText) {}
    LentText(const LentText&) = delete;
    LentText& operator=(const LentText&) = delete;
    ~LentText() { platform::CallHost(freeText_, &lent_); }

    [[nodiscard]] MString* Target() { return &lent_; }
    [[nodiscard]] const char* Get() const { return lent_.text == nullptr ? "" : lent_.text; }

  private:
    void(ORVELL_CALL* freeText_)(MString*);
    MString lent_{};
};

/// Fills `text` by a function whose last argument is the record for the text.
template <typename... Parameters, typename... Arguments>
bool TakeText(const XmlAccessFunctions& functions, std::string& text,
              std::int32_t(ORVELL_CALL* function)(Parameters...), Arguments... arguments) {
    text.clear();
    if (function == nullptr) {
        return false;
    }
    LentText lent(functions.FreeMString);
    if (platform::CallHost(function, arguments..., lent.Target()) == 0) {
        return false;
    }
    text = lent.Get();
    return true;
}

}  // namespace

bool XmlAccessBinding::Bind(platform::LibraryLoader& loader, const std::string& path) {
    Unbind();
    if (path.empty()) {
        return false;
    }
    std::unique_ptr<platform::Library> library = loader.Load(path);
    if (library == nullptr) {
        return false;
    }
    FunctionAddresses addresses{};
    for (std::size_t i = 0; i < addresses.size(); ++i) {
        addresses[i] = library->Find(kFunctionNames[i]);
        if (addresses[i] == nullptr) {
            return false;
        }
    }
    functions_ = std::bit_cast<XmlAccessFunctions>(addresses);
    library_ = std::move(library);
    return true;
}

void XmlAccessBinding::Unbind() {
    functions_ = {};
    library_.reset();
}

void XmlAccessBinding::Abandon() {
    if (library_ != nullptr) {
        library_->Abandon();
    }
    Unbind();
}

XmlDocumentHandle XmlAccessBinding::Create() const {
    return CallIfBound(functions_.Create);
}

XmlDocumentHandle XmlAccessBinding::Open(const std::string& path) const {
    return CallIfBound(functions_.Open, path.c_str());
}

bool XmlAccessBinding::Save(XmlDocumentHandle document, const std::string& path) const {
    return CallIfBound(functions_.Save, document, path.c_str()) > 0;
}

void XmlAccessBinding::Close(XmlDocumentHandle document) const {
    CallIfBound(functions_.Close, document);
}

std::string XmlAccessBinding::LastError() const {
    if (functions_.GetLastError == nullptr) {
        return {};
    }
    LentText lent(functions_.FreeMString);
    platform::CallHost(functions_.GetLastError,
                       lent.Target());  // whether there is a text is all that counts
    return lent.Get();
}

void XmlAccessBinding::FreeHandle(XmlNodeHandle node) const {
    CallIfBound(functions_.FreeHandle, node);
}

XmlNodeHandle XmlAccessBinding::RootNode(XmlDocumentHandle document) const {
    return CallIfBound(functions_.GetRootNode, document);
}

XmlNodeHandle XmlAccessBinding::AddRootNode(XmlDocumentHandle document, const char* name) const {
    return CallIfBound(functions_.AddRootNodeByName, document, name);
}

XmlNodeHandle XmlAccessBinding::FirstChild(XmlNodeHandle node) const {
    return CallIfBound(functions_.GetFirstChildNode, node);
}

XmlNodeHandle XmlAccessBinding::NextNode(XmlNodeHandle node) const {
    return CallIfBound(functions_.GetNextNode, node);
}

XmlNodeHandle XmlAccessBinding::ChildByName(XmlNodeHandle node, const char* name) const {
    return CallIfBound(functions_.GetChildNodeByName, node, name);
}

XmlNodeHandle XmlAccessBinding::AddChild(XmlNodeHandle node, const char* name) const {
    return CallIfBound(functions_.AddChildNodeByName, node, name);
}

bool XmlAccessBinding::NodeName(XmlNodeHandle node, std::string& text) const {
    return TakeText(functions_, text, functions_.GetNodeName, node);
}

bool XmlAccessBinding::AttribName(XmlNodeHandle node, std::uint32_t index,
                                  std::string& text) const {
    return TakeText(functions_, text, functions_.GetNameOfAttrib, node, index);
}

bool XmlAccessBinding::AttribText(XmlNodeHandle node, const char* name, std::string& text) const {
    return TakeText(functions_, text, functions_.GetAttribValueAsString, node, name);
}

std::uint32_t XmlAccessBinding::AttribCount(XmlNodeHandle node) const {
    return CallIfBound(functions_.GetNumOfAttribs, node);
}

bool XmlAccessBinding::AttribULong(XmlNodeHandle node, const char* name,
                                   std::uint32_t& value) const {
    std::uint32_t read = 0;
    const bool isNumber = CallIfBound(functions_.GetAttribValueAsULONG, node, name, &read) != 0;
    value = isNumber ? read : 0;
    return isNumber;
}

bool XmlAccessBinding::SetAttribText(XmlNodeHandle node, const char* name,
                                     const char* value) const {
    return CallIfBound(functions_.SetStringValueAttrib, node, name, value) > 0;
}

}  // namespace orvell::memstruct
