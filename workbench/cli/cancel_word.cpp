#include "cli/cancel_word.h"

#include <windows.h>

namespace workbench::cli {
namespace {

volatile std::uint32_t cancelWord = 0;

/// Called on a thread of Windows' own.
BOOL WINAPI OnConsoleEvent(DWORD event) {
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) {
        return FALSE;
    }
    cancelWord = 1;
    return TRUE;
}

}  // namespace

volatile std::uint32_t& CancelWord() {
    return cancelWord;
}

CancelByKeyboard::CancelByKeyboard() {
    SetConsoleCtrlHandler(OnConsoleEvent, TRUE);
}

CancelByKeyboard::~CancelByKeyboard() {
    SetConsoleCtrlHandler(OnConsoleEvent, FALSE);
}

}  // namespace workbench::cli
