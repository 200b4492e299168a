#pragma once

#include <map>
#include <string>

namespace orvell::fuzz {

/// The host's files, by path; the module opens no others. Those without a path, and those
/// whose paths begin with '?', cannot be created.
[[nodiscard]] std::map<std::string, std::string>& MemoryFiles();

}  // namespace orvell::fuzz
