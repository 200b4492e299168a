#include "paramlist/project_list_paths.h"

#include <algorithm>

#include "platform/ansi_text.h"
#include "values/characters.h"

namespace orvell::paramlist {

std::string_view FileExtension(std::string_view path) {
    const std::size_t stop = path.find_last_of("\\:.");
    const bool isExtension = stop != std::string_view::npos && path[stop] == '.';
    return isExtension ? path.substr(stop) : std::string_view();
}

std::string ListFilePath(std::string_view projectPath) {
    if (projectPath.empty()) {
        return {};
    }
    projectPath.remove_suffix(FileExtension(projectPath).size());
    return platform::ToUpperAnsi(std::string(projectPath).append(".SIL"));
}

bool IsCsvPath(std::string_view path) {
    return std::ranges::equal(FileExtension(path), std::string_view(".CSV"), {},
                              values::ToUpperAscii);
}

}  // namespace orvell::paramlist
