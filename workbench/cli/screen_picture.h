#pragma once

#include <string>

namespace workbench::cli {

/// Keeps what the screen shows where the calling thread has windows, as a PNG file. False when
/// there are none or the file cannot be written.
[[nodiscard]] bool KeepScreenPicture(const std::wstring& path);

}  // namespace workbench::cli
