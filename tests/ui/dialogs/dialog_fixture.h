#pragma once

#include <windows.h>

#include <string>

#include "resources/dialog_ids.h"
#include "support/dialog_user.h"
#include "ui/dialogs/windows_parameter_editor.h"
#include "ui/grid/grid_control.h"
#include "unit/ui/dialogs/form_fixture.h"

namespace orvell::ui {

constexpr std::uint32_t kInt = 1;     ///< INT of 2 bytes
constexpr std::uint32_t kPair = 2;    ///< a: Int, m: Mode[2]
constexpr std::uint32_t kMode = 3;    ///< Off 0, On 1 in a byte
constexpr std::uint32_t kDay = 4;     ///< DATE
constexpr std::uint32_t kLoop = 5;    ///< recursive
constexpr std::uint32_t kBroken = 6;  ///< an element of unknown type
constexpr std::uint32_t kHuge = 7;    ///< 4,000,000,000 elements
constexpr std::uint32_t kLong = 8;    ///< 200 words
constexpr std::uint32_t kTimes = 9;   ///< DURATION
constexpr std::uint32_t kLost = 10;   ///< of a type that does not exist
constexpr std::uint32_t kUnknown = 99;

/// Editing parameters with real windows: the test's own program holds the dialogs' resources.
class DialogTest : public testing::Test {
  protected:
    DialogTest();

    /// What the dialogs get of this test.
    [[nodiscard]] EditorServices Services();

    /// Shows the dialog on a record; the result of the editing.
    bool Edit(DialogParameterRecord* record);
    bool Edit(OwnedDialogRecord& owned) { return Edit(&owned.record); }

    /// Shows the dialog on a record while the script works it; the result of the editing.
    bool EditWith(DialogParameterRecord* record,
                  const std::function<void(const test::DialogUser&)>& script);
    bool EditWith(OwnedDialogRecord& owned,
                  const std::function<void(const test::DialogUser&)>& script) {
        return EditWith(&owned.record, script);
    }

    [[nodiscard]] static HWND ParameterDialogOf(const test::DialogUser& user) {
        return user.Dialog(ORVELL_VALUE_GRID);
    }
    [[nodiscard]] static HWND TransferDialogOf(const test::DialogUser& user) {
        return user.Dialog(ORVELL_TRANSFER_PROGRESS);
    }

    /// The rows of the dialog's grid: "name=text" each.
    [[nodiscard]] static Rows GridRows(const test::DialogUser& user, HWND dialog);

    /// The grid; only to be used on the thread of its window.
    [[nodiscard]] static CGridCtrl& GridOf(HWND dialog);

    /// Does what typing the text into a value cell does.
    static void Enter(const test::DialogUser& user, HWND dialog, int row, std::string_view text);

    /// Clicks one of the arrows of an up-down control.
    static void ClickSpin(const test::DialogUser& user, HWND dialog, int spin, bool isUpper);

    /// A control's place in its dialog.
    [[nodiscard]] static RECT PlaceOf(HWND dialog, int control);

    Definitions definitions;
    OnlineAccessRecord host{};
    HMODULE languageLibrary = nullptr;
    WindowsParameterEditor editor;
};

}  // namespace orvell::ui
