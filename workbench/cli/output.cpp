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

}  // namespace

void Print(std::string_view text) {
    Write(STD_OUTPUT_HANDLE, text);
}

void PrintError(std::string_view line) {
    Write(STD_ERROR_HANDLE, "workbench: " + std::string(line) + "\n");
}

}  // namespace workbench::cli
