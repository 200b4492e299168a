#include "xmlaccess/dom_document.h"

#include <cstring>
#include <string_view>

#include "xmlaccess/com_support.h"
#include "xmlaccess/msxml_ids.h"
#include "xmlaccess/parse_failure.h"

namespace workbench::xmlaccess {
namespace {

using Microsoft::WRL::ComPtr;

/// COM stays initialised on the thread: node handles may outlive the last document. A thread that
/// belongs to another apartment already serves as well.
bool IsComReady() {
    const HRESULT result = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (result == S_FALSE) {
        CoUninitialize();
    }
    return SUCCEEDED(result) || result == RPC_E_CHANGED_MODE;
}

bool SetUp(IXMLDOMDocument2* document) {
    return SUCCEEDED(document->put_async(VARIANT_FALSE)) &&
           SUCCEEDED(document->put_validateOnParse(VARIANT_FALSE)) &&
           SUCCEEDED(document->put_resolveExternals(VARIANT_FALSE)) &&
           SUCCEEDED(document->put_preserveWhiteSpace(VARIANT_TRUE)) &&
           SUCCEEDED(document->setProperty(BStr(L"NewParser").Get(), Variant(true).Get())) &&
           SUCCEEDED(document->setProperty(BStr(L"ProhibitDTD").Get(), Variant(true).Get()));
}

bool PutBytes(std::span<const std::byte> bytes, VARIANT* content) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    if (array == nullptr) {
        return false;
    }
    content->vt = VT_ARRAY | VT_UI1;
    content->parray = array;
    void* data = nullptr;
    if (FAILED(SafeArrayAccessData(array, &data))) {
        return false;
    }
    std::memcpy(data, bytes.data(), bytes.size());
    SafeArrayUnaccessData(array);
    return true;
}

/// Not every MSXML heeds ProhibitDTD.
bool HasDocumentType(IXMLDOMDocument2* document) {
    ComPtr<IXMLDOMNode> node;
    document->get_firstChild(&node);
    while (node != nullptr) {
        DOMNodeType type = NODE_INVALID;
        node->get_nodeType(&type);
        if (type == NODE_DOCUMENT_TYPE) {
            return true;
        }
        ComPtr<IXMLDOMNode> next;
        node->get_nextSibling(&next);
        node = next;
    }
    return false;
}

bool IsAccepted(IXMLDOMDocument2* document, bool loaded, const Variant& content,
                std::string& reason) {
    if (!loaded) {
        reason = DescribeParseFailure(document, content.Get());
        return false;
    }
    if (HasDocumentType(document)) {
        reason = "The file has a document type definition (DOCTYPE), which is not allowed.";
        return false;
    }
    return true;
}

void RemoveDeclaration(IXMLDOMDocument2* document) {
    ComPtr<IXMLDOMNode> first;
    BStr name;
    if (SUCCEEDED(document->get_firstChild(&first)) && first != nullptr &&
        SUCCEEDED(first->get_nodeName(name.Receive())) && name.View() == L"xml") {
        document->removeChild(first.Get(), nullptr);
    }
}

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

/// Appends what the stream holds.
bool CopyStream(IStream* stream, std::vector<std::byte>& bytes) {
    STATSTG statistics{};
    HGLOBAL memory = nullptr;
    if (FAILED(stream->Stat(&statistics, STATFLAG_NONAME)) ||
        FAILED(GetHGlobalFromStream(stream, &memory))) {
        return false;
    }
    const auto size = static_cast<std::size_t>(statistics.cbSize.QuadPart);
    const void* data = GlobalLock(memory);
    if (data == nullptr) {
        return false;
    }
    const auto* first = static_cast<const std::byte*>(data);
    bytes.insert(bytes.end(), first, first + size);
    GlobalUnlock(memory);
    return true;
}

}  // namespace

ComPtr<IXMLDOMDocument2> NewDomDocument(std::string& reason) {
    ComPtr<IXMLDOMDocument2> document;
    if (!IsComReady() ||
        FAILED(CoCreateInstance(kClsidDomDocument60, nullptr, CLSCTX_INPROC_SERVER,
                                kIidDomDocument2,
                                reinterpret_cast<void**>(document.GetAddressOf()))) ||
        !SetUp(document.Get())) {
        reason = "MSXML 6, the XML library of Windows, cannot be used.";
        document.Reset();
    }
    return document;
}

bool LoadDomDocument(IXMLDOMDocument2* document, std::span<const std::byte> bytes,
                     std::string& reason) {
    Variant content;
    if (!PutBytes(bytes, content.Receive())) {
        reason = "There is not enough memory for the file.";
        return false;
    }
    VARIANT_BOOL loaded = VARIANT_FALSE;
    const HRESULT result = document->load(content.Get(), &loaded);
    return IsAccepted(document, SUCCEEDED(result) && loaded != VARIANT_FALSE, content, reason);
}

bool ParseDomDocument(IXMLDOMDocument2* document, std::wstring_view text, std::string& reason) {
    const Variant content(text);
    VARIANT_BOOL loaded = VARIANT_FALSE;
    const HRESULT result = document->loadXML(content.Get().bstrVal, &loaded);
    return IsAccepted(document, SUCCEEDED(result) && loaded != VARIANT_FALSE, content, reason);
}

// A document without a declaration is written in UTF-8. The declaration is put before it as bytes:
// the MSXML of Wine keeps the memory of every document into which one has been inserted.
bool WriteDomDocument(IXMLDOMDocument2* document, std::vector<std::byte>& bytes,
                      std::string& reason) {
    RemoveDeclaration(document);
    const auto declaration = std::as_bytes(std::span(kDeclaration));
    bytes.assign(declaration.begin(), declaration.end());
    ComPtr<IStream> stream;
    if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, &stream)) ||
        FAILED(document->save(Variant(stream.Get()).Get())) || !CopyStream(stream.Get(), bytes)) {
        reason = "MSXML cannot write the document.";
        return false;
    }
    return true;
}

}  // namespace workbench::xmlaccess
