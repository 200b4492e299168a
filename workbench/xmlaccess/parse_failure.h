#pragma once

#include <windows.h>

#include <msxml2.h>

#include <string>

namespace workbench::xmlaccess {

/// Why `document` did not take `content` (a byte array): "reason (line N, column M)".
///
/// The document's own parse error is used when it names a line. MSXML implementations whose
/// documents keep none are asked through their SAX reader, which reports the same failure with a
/// place: that of the last construct before it.
[[nodiscard]] std::string DescribeParseFailure(IXMLDOMDocument2* document, const VARIANT& content);

}  // namespace workbench::xmlaccess
