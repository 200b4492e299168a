#include "xmlaccess/parse_failure.h"

#include <wrl/client.h>

#include <algorithm>
#include <string_view>

#include "common/code_page.h"
#include "xmlaccess/com_support.h"
#include "xmlaccess/msxml_ids.h"

namespace workbench::xmlaccess {
namespace {

using Microsoft::WRL::ComPtr;

struct ParseFailure {
    std::wstring reason;
    long line = 0;
    long column = 0;
};

// A COM interface has no virtual destructor: objects end by their reference count.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Keeps the first fatal error of a SAX reader. Lives on the stack for the length of one parse, so
/// the reference count has nothing to do.
class FatalErrorHandler final : public ISAXErrorHandler {
  public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        const bool known = id == IID_IUnknown || id == kIidSaxErrorHandler;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }

    STDMETHODIMP error(ISAXLocator*, const WCHAR*, HRESULT) override { return S_OK; }
    STDMETHODIMP ignorableWarning(ISAXLocator*, const WCHAR*, HRESULT) override { return S_OK; }
    STDMETHODIMP fatalError(ISAXLocator* locator, const WCHAR* message, HRESULT) override {
        if (failure.reason.empty() && locator != nullptr && message != nullptr) {
            int line = 0;
            int column = 0;
            locator->getLineNumber(&line);
            locator->getColumnNumber(&column);
            failure = {message, line, column};
        }
        return S_OK;
    }

    ParseFailure failure;
};

#pragma GCC diagnostic pop

ParseFailure FailureOfDocument(IXMLDOMDocument2* document) {
    ComPtr<IXMLDOMParseError> error;
    BStr reason;
    ParseFailure failure;
    if (SUCCEEDED(document->get_parseError(&error)) && error != nullptr &&
        SUCCEEDED(error->get_reason(reason.Receive()))) {
        failure.reason = reason.View();
        error->get_line(&failure.line);
        error->get_linepos(&failure.column);
    }
    return failure;
}

ParseFailure FailureOfReader(const VARIANT& content) {
    ComPtr<ISAXXMLReader> reader;
    FatalErrorHandler handler;
    if (SUCCEEDED(CoCreateInstance(kClsidSaxReader60, nullptr, CLSCTX_INPROC_SERVER, kIidSaxReader,
                                   reinterpret_cast<void**>(reader.GetAddressOf()))) &&
        SUCCEEDED(reader->putErrorHandler(&handler))) {
        reader->parse(content);
        reader->putErrorHandler(nullptr);
    }
    return handler.failure;
}

/// One line without blanks at the end.
std::wstring OneLine(std::wstring text) {
    for (wchar_t& c : text) {
        c = c < L' ' ? L' ' : c;
    }
    text.erase(std::find_if(text.rbegin(), text.rend(), [](wchar_t c) { return c != L' '; }).base(),
               text.end());
    return text;
}

}  // namespace

std::string DescribeParseFailure(IXMLDOMDocument2* document, const VARIANT& content) {
    ParseFailure failure = FailureOfDocument(document);
    if (failure.line == 0) {
        failure = FailureOfReader(content);
    }
    if (failure.line == 0) {
        return "The file holds no XML document.";
    }
    return AnsiFromWide(OneLine(std::move(failure.reason))) + " (line " +
           std::to_string(failure.line) + ", column " + std::to_string(failure.column) + ")";
}

}  // namespace workbench::xmlaccess
