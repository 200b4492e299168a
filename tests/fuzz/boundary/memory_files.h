#pragma once

#include <map>
#include <string>

namespace orvell::fuzz {

using FilesByPath = std::map<std::string, std::string>;

/// Lets the module work with these files, which must live as long as it does.
void UseFiles(FilesByPath& files);

/// The host's files, by path; the module opens no others. Those without a path, and those
/// whose paths begin with '?', cannot be created.
[[nodiscard]] FilesByPath& MemoryFiles();

}  // namespace orvell::fuzz
