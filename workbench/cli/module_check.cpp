#include "cli/module_check.h"

#include <windows.h>

#include <algorithm>
#include <cctype>
#include <memory>
#include <string_view>
#include <type_traits>

#include "cli/output.h"
#include "common/module_path.h"

namespace workbench::cli {
namespace {

constexpr const char* kChecker = "modulecheck.exe";

struct CloseProcess {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using ProcessHandle = std::unique_ptr<std::remove_pointer_t<HANDLE>, CloseProcess>;

bool EndsLikeModule(std::string_view path) {
    constexpr std::string_view kExtension = ".DLL";
    return path.size() > kExtension.size() &&
           std::ranges::equal(path.substr(path.size() - kExtension.size()), kExtension,
                              [](char left, char right) {
                                  return std::toupper(static_cast<unsigned char>(left)) == right;
                              });
}

/// None of the checker's options and no file name holds a quotation mark.
std::string CommandLineOf(std::span<const std::string> words) {
    std::string line = '"' + FolderOfModule(nullptr) + kChecker + '"';
    for (const std::string& word : words) {
        line += " \"" + word + '"';
    }
    return line;
}

ProcessHandle Start(std::string commandLine) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                       &start, &process) == 0) {
        return nullptr;
    }
    const ProcessHandle thread(process.hThread);
    return ProcessHandle(process.hProcess);
}

}  // namespace

bool IsModuleCheck(std::span<const std::string> words) {
    return words.size() > 1 && words.front() == "check" && EndsLikeModule(words.back());
}

ExitCode RunModuleCheck(std::span<const std::string> words) {
    const ProcessHandle checker = Start(CommandLineOf(words.subspan(1)));
    if (checker == nullptr) {
        PrintError(std::string(kChecker) + " cannot be started; it must lie in " +
                   FolderOfModule(nullptr));
        return ExitCode::NotLoaded;
    }
    WaitForSingleObject(checker.get(), INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(checker.get(), &code);
    return static_cast<ExitCode>(code);
}

}  // namespace workbench::cli
