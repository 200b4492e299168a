#include "cli/output.h"

#include <windows.h>

#include <string>

#include "common/code_page.h"

namespace workbench::cli {
namespace {

// Written past the C run-time, which would turn line feeds into pairs.
void Write(DWORD stream, std::string_view text) {
    const HANDLE handle = GetStdHandle(stream);
    const std::wstring wide = WideFromAnsi(text);
    DWORD mode = 0;
    DWORD written = 0;
    if (GetConsoleMode(handle, &mode) != FALSE) {
        WriteConsoleW(handle, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
        return;
    }
    const std::string bytes = Utf8FromWide(wide);
    WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

/// The console's nearest colour: a bit for each part that is at least half as strong as can be.
WORD ConsoleColor(std::uint32_t color) {
    constexpr std::uint32_t kHalfRed = 0x000080;
    constexpr std::uint32_t kHalfGreen = 0x008000;
    constexpr std::uint32_t kHalfBlue = 0x800000;
    return static_cast<WORD>(((color & kHalfRed) != 0 ? FOREGROUND_RED : 0) |
                             ((color & kHalfGreen) != 0 ? FOREGROUND_GREEN : 0) |
                             ((color & kHalfBlue) != 0 ? FOREGROUND_BLUE : 0));
}

}  // namespace

void Print(std::string_view text) {
    Write(STD_OUTPUT_HANDLE, text);
}

void PrintColored(std::string_view text, std::uint32_t color, bool emphasis) {
    constexpr WORD kForeground =
        FOREGROUND_RED | FOREGROUND_GREEN | FOREGROUND_BLUE | FOREGROUND_INTENSITY;
    const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
    CONSOLE_SCREEN_BUFFER_INFO before{};
    if (GetConsoleScreenBufferInfo(console, &before) == FALSE) {
        Print(text);
        return;
    }
    const int background = before.wAttributes & ~kForeground;
    const int brightness = emphasis ? FOREGROUND_INTENSITY : 0;
    SetConsoleTextAttribute(console,
                            static_cast<WORD>(background | brightness | ConsoleColor(color)));
    Print(text);
    SetConsoleTextAttribute(console, before.wAttributes);
}

void PrintError(std::string_view line) {
    Write(STD_ERROR_HANDLE, "workbench: " + std::string(line) + "\n");
}

bool IsErrorConsole() {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != FALSE;
}

}  // namespace workbench::cli
