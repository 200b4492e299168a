#pragma once

#include <windows.h>

#include <msxml2.h>
#include <wrl/client.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace workbench::xmlaccess {

/// An empty MSXML document that refuses document type definitions and reaches no outside file.
/// Null, with `reason` set, when COM or MSXML 6 is missing.
[[nodiscard]] Microsoft::WRL::ComPtr<IXMLDOMDocument2> NewDomDocument(std::string& reason);

/// Parses a whole file's bytes; the encoding is the one that the file declares. False, with
/// `reason` set, when they are no well-formed document.
[[nodiscard]] bool LoadDomDocument(IXMLDOMDocument2* document, std::span<const std::byte> bytes,
                                   std::string& reason);

/// As `LoadDomDocument` for a text whose characters are known, whatever encoding it declares.
[[nodiscard]] bool ParseDomDocument(IXMLDOMDocument2* document, std::wstring_view text,
                                    std::string& reason);

/// The document as a file's bytes: UTF-8 with an XML declaration, whatever encoding it was read
/// in. False, with `reason` set, when MSXML fails.
[[nodiscard]] bool WriteDomDocument(IXMLDOMDocument2* document, std::vector<std::byte>& bytes,
                                    std::string& reason);

}  // namespace workbench::xmlaccess
