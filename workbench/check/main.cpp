#include <windows.h>

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>

#include "check/check_run.h"

namespace workbench::check {
namespace {

constexpr const char* kUsage =
    "modulecheck [--seed N] [--only THEME] FILE\n\n"
    "Checks a build of Orvell from outside, as a hostile host would: loads FILE (ORVELL.DLL or\n"
    "however it is called, with its libraries beside it) and calls every slot and export with\n"
    "regular, empty, short, oversized and random records and texts. Checks the results, that "
    "memory\n"
    "is balanced, and that nothing outside the declared sizes is touched. Prints a line for each\n"
    "check.\n\n"
    "  --seed N        chooses the random records and texts (default: 1)\n"
    "  --only THEME    runs the checks of one theme: loading, table, release, values, transfer,\n"
    "                  types, resolve, dialog, configuration, management, \"list files\", "
    "accessors,\n"
    "                  signals\n\n"
    "Exit codes: 0 all is well; 1 a check failed; 2 wrong command line; 3 the module or the\n"
    "display is missing.\n";

bool ReadSeed(std::string_view text, std::uint32_t& seed) {
    const char* end = text.data() + text.size();
    const auto [stop, problem] = std::from_chars(text.data(), end, seed);
    return problem == std::errc{} && stop == end;
}

std::string FullPath(const char* path) {
    const DWORD size = GetFullPathNameA(path, 0, nullptr, nullptr);
    std::string full(size, '\0');
    full.resize(GetFullPathNameA(path, size, full.data(), nullptr));
    return full;
}

/// False when the words are no complete command line.
bool ReadOptions(std::span<char* const> words, Options& options) {
    while (words.size() > 1) {
        const std::string_view option = words[0];
        if (option == "--only" && IsTheme(words[1])) {
            options.theme = words[1];
        } else if (option != "--seed" || !ReadSeed(words[1], options.seed)) {
            return false;
        }
        words = words.subspan(2);
    }
    if (words.empty() || *words[0] == '-') {
        return false;
    }
    options.module = FullPath(words[0]);
    return true;
}

/// What crashes outside of a check, as while the module is unloaded at the end, opens no debugger.
LONG WINAPI EndProgram(EXCEPTION_POINTERS*) {
    std::fputs("\nThe module has crashed the program.\n", stderr);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(ExitCode::Failed));
    return EXCEPTION_EXECUTE_HANDLER;
}

ExitCode Main(std::span<char* const> words) {
    Options options;
    if (!ReadOptions(words, options)) {
        std::fputs(kUsage, stderr);
        return ExitCode::WrongUsage;
    }
    SetUnhandledExceptionFilter(EndProgram);
    return CheckModule(options);
}

}  // namespace
}  // namespace workbench::check

int main(int argumentCount, char** arguments) {
    const std::span<char* const> words(arguments, static_cast<std::size_t>(argumentCount));
    return static_cast<int>(workbench::check::Main(words.subspan(1)));
}
