#pragma once

#include "orvell/orvell.h"

namespace workbench::cli {

/// The host's callbacks: there is one message page, the standard output, which takes every line.
[[nodiscard]] HostExportTable MessagePageCallbacks();

}  // namespace workbench::cli
