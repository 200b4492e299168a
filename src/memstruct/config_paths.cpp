#include "memstruct/config_paths.h"

#include "platform/ansi_text.h"

namespace orvell::memstruct {

namespace {

/// The path without its extension. A dot that the path begins with is no extension.
std::string_view WithoutExtension(std::string_view path) {
    const std::size_t stop = path.find_last_of("\\:.");
    const bool isExtension = stop != std::string_view::npos && stop > 0 && path[stop] == '.';
    return isExtension ? path.substr(0, stop) : path;
}

std::string WithExtension(std::string_view path, std::string_view extension) {
    if (path.empty()) {
        return {};
    }
    return platform::ToUpperAnsi(std::string(WithoutExtension(path)).append(extension));
}

}  // namespace

std::string DefaultStructFile(std::string_view modulePath) {
    return WithExtension(modulePath, ".XML");
}

std::string ProjectStructFile(std::string_view projectPath) {
    return WithExtension(projectPath, ".STDMEMXML");
}

std::string FileNamePart(std::string_view path) {
    const std::size_t separator = path.find_last_of("\\:");
    return platform::ToUpperAnsi(separator == std::string_view::npos ? path
                                                                     : path.substr(separator + 1));
}

std::string JoinPath(std::string_view directory, std::string_view relative) {
    constexpr std::string_view kLevelUp = "..\\";
    if (directory.ends_with('\\')) {
        directory.remove_suffix(1);
    }
    while (relative.starts_with(kLevelUp)) {
        relative.remove_prefix(kLevelUp.size());
        directory = directory.substr(0, directory.rfind('\\'));
    }
    return platform::ToUpperAnsi(std::string(directory).append("\\").append(relative));
}

}  // namespace orvell::memstruct
