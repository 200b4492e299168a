#include "paramlist/editor_command.h"

#include <algorithm>

#include "paramlist/project_list_paths.h"
#include "values/characters.h"

namespace orvell::paramlist {
namespace {

using platform::Registry;
using platform::RegistryRoot;

constexpr std::string_view kQuotationMark = "\"";

/// A text of the registry; empty when there is none.
std::string Text(const Registry& registry, RegistryRoot root, const std::string& key,
                 const std::string& valueName = {}) {
    return registry.ReadText(root, key, valueName).value_or(std::string());
}

std::string OpenCommand(const Registry& registry, const std::string& classKey) {
    return Text(registry, RegistryRoot::ClassesRoot, classKey + "\\SHELL\\OPEN\\COMMAND");
}

bool StartsWithSystemRoot(std::string_view path) {
    constexpr std::string_view kSystemRoot = "%SYSTEMROOT%\\";
    return std::ranges::equal(path.substr(0, kSystemRoot.size()), kSystemRoot, {},
                              values::ToUpperAscii);
}

std::string WithoutSystemRoot(std::string_view command) {
    const bool isQuoted = command.starts_with(kQuotationMark);
    std::string_view path = isQuoted ? command.substr(1) : command;
    if (StartsWithSystemRoot(path)) {
        path.remove_prefix(path.find('\\') + 1);
    }
    std::string line(isQuoted ? kQuotationMark : std::string_view());
    line.append(path);
    if (isQuoted && path.find('"') == std::string_view::npos) {
        line.append(kQuotationMark);  // the program's name was never closed
    }
    return line;
}

bool IsInsideQuotation(std::string_view text, std::size_t position) {
    return std::ranges::count(text.substr(0, position), '"') % 2 != 0;
}

}  // namespace

std::string FindEditorCommand(const Registry& registry, std::string_view filePath) {
    const std::string extension(FileExtension(filePath));
    if (extension.empty()) {
        return {};
    }
    const std::string application =
        Text(registry, RegistryRoot::CurrentUser,
             "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\FileExts\\" + extension,
             "Application");
    if (!application.empty()) {
        std::string command = OpenCommand(registry, "Applications\\" + application);
        if (!command.empty()) {
            return command;
        }
    }
    const std::string fileType = Text(registry, RegistryRoot::ClassesRoot, extension);
    return fileType.empty() ? std::string() : OpenCommand(registry, fileType);
}

std::string EditorCommandLine(std::string_view command, std::string_view filePath) {
    constexpr std::string_view kQuotedPlace = "\"%1\"";
    constexpr std::string_view kPlace = "%1";
    std::string line = WithoutSystemRoot(command);
    const std::string quotedPath = std::string(kQuotationMark).append(filePath).append("\"");
    if (const std::size_t place = line.find(kQuotedPlace); place != std::string::npos) {
        return line.replace(place, kQuotedPlace.size(), quotedPath);
    }
    if (const std::size_t place = line.find(kPlace); place != std::string::npos) {
        return line.replace(place, kPlace.size(),
                            IsInsideQuotation(line, place) ? filePath : quotedPath);
    }
    return line.append(" ").append(quotedPath);
}

}  // namespace orvell::paramlist
