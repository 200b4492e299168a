#include "ui/dialogs/transfer_dialog.h"

#include <commctrl.h>

#include "dialog_fixture.h"
#include "online_target.h"

namespace orvell::ui {
namespace {

using test::DialogUser;

HANDLE NoThread(WorkerThread::Function, void*) {
    return nullptr;
}

UINT_PTR WINAPI NoTimer(HWND, UINT_PTR, UINT, TIMERPROC) {
    return 0;
}

/// A timer is had at one attempt only.
UINT_PTR goodAttempt = 0;
UINT_PTR attempts = 0;
UINT_PTR WINAPI LateTimer(HWND window, UINT_PTR number, UINT interval, TIMERPROC procedure) {
    attempts = number;
    return number != goodAttempt ? 0 : SetTimer(window, number, interval, procedure);
}

DWORD HandleCount() {
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return count;
}

class TransferDialogTest : public DialogTest {
  protected:
    /// Transfers `count` words; the dialog's result.
    int Transfer(std::uint32_t identifier, std::uint32_t count,
                 const std::function<void(const DialogUser&)>& script) {
        int result = 0;
        test::WorkDialogs(
            [&] {
                const EditorServices services = Services();
                TransferDialog dialog(services, value, identifier, count, functions, system);
                result = dialog.Run(nullptr);
            },
            script);
        return result;
    }

    OnlineTarget target;
    OnlineAccessRecord functions = OnlineTarget::Functions();
    TransferSystem system;
    Bytes value{1, 0, 2, 0, 3, 0, 4, 0};
};

TEST_F(TransferDialogTest, EndsByItselfWhenAllIsWritten) {
    EXPECT_EQ(Transfer(kInt, 4, [](const DialogUser&) {}), IDOK);
    EXPECT_EQ(target.Values(), (std::vector<std::uint16_t>{1, 2, 3, 4}));
}

TEST_F(TransferDialogTest, NothingToWriteSucceedsAtOnce) {
    EXPECT_EQ(Transfer(kInt, 0, [](const DialogUser&) {}), IDOK);
    EXPECT_TRUE(target.Puts().empty());
}

TEST_F(TransferDialogTest, AnEmptyValueShowsAFullBar) {
    value.clear();
    EXPECT_EQ(Transfer(kInt, 1,
                       [](const DialogUser& user) {
                           const HWND box = user.MessageBox();
                           EXPECT_EQ(
                               SendDlgItemMessageW(GetWindow(box, GW_OWNER),
                                                   ORVELL_TRANSFER_PROGRESS, PBM_GETPOS, 0, 0),
                               100);
                           user.Press(box, IDOK);
                       }),
              IDCANCEL);
}

TEST_F(TransferDialogTest, AShortValueFailsWhereItEnds) {
    EXPECT_EQ(Transfer(kInt, 5,
                       [](const DialogUser& user) {
                           EXPECT_EQ(user.AnswerBox(),
                                     "Der Wert kann nicht online geschrieben werden.");
                       }),
              IDCANCEL);
    EXPECT_EQ(target.Puts().size(), 4U);
}

TEST_F(TransferDialogTest, AnUnknownAreaStartsNothing) {
    EXPECT_EQ(Transfer(kUnknown, 4,
                       [](const DialogUser& user) {
                           EXPECT_EQ(user.AnswerBox(),
                                     "Ung\xFCltige \xDC"
                                     "bertragungsparameter !");
                       }),
              IDCANCEL);
    EXPECT_TRUE(target.Puts().empty());
}

TEST_F(TransferDialogTest, WithoutThreadOrTimerNothingIsWritten) {
    const char* const message =
        "Der Thread f\xFCr das \xDC"
        "bertragen der Parameterwerte konnte nicht gestartet werden.";
    const auto answer = [message](const DialogUser& user) { EXPECT_EQ(user.AnswerBox(), message); };
    system.startThread = NoThread;
    EXPECT_EQ(Transfer(kInt, 4, answer), IDCANCEL);
    system = {};
    system.setTimer = NoTimer;
    EXPECT_EQ(Transfer(kInt, 4, answer), IDCANCEL);
    EXPECT_TRUE(target.Puts().empty());
}

TEST_F(TransferDialogTest, TriesAHundredTimersAndEndsTheOneItGets) {
    system.setTimer = LateTimer;
    for (const UINT_PTR attempt : {1, 2, 3, 99, 100}) {
        goodAttempt = attempt;
        EXPECT_EQ(Transfer(kInt, 4, [](const DialogUser&) {}), IDOK);
        EXPECT_EQ(attempts, attempt);
    }
    EXPECT_EQ(target.Puts().size(), 5U * 4U);
    goodAttempt = 101;
    EXPECT_EQ(Transfer(kInt, 4, [](const DialogUser& user) { user.AnswerBox(); }), IDCANCEL);
    EXPECT_EQ(attempts, 100U);
    EXPECT_EQ(target.Puts().size(), 5U * 4U);
}

TEST_F(TransferDialogTest, TransfersThatCannotStartLeaveNoHandles) {
    constexpr DWORD kTransfers = 6;
    const auto answer = [](const DialogUser& user) { user.AnswerBox(); };
    EXPECT_EQ(Transfer(kInt, 4, [](const DialogUser&) {}), IDOK);  // what is kept for later
    system.startThread = NoThread;
    EXPECT_EQ(Transfer(kInt, 4, answer), IDCANCEL);
    const DWORD before = HandleCount();
    for (DWORD transfer = 0; transfer < kTransfers; ++transfer) {
        system = {};
        if (transfer % 2 == 0) {
            system.startThread = NoThread;
        } else {
            system.setTimer = NoTimer;
        }
        EXPECT_EQ(Transfer(kInt, 4, answer), IDCANCEL);
    }
    EXPECT_LT(HandleCount(), before + kTransfers);
}

TEST_F(TransferDialogTest, FailsAtTheFirstElementAsAtTheLast) {
    target.FailAt(0);
    EXPECT_EQ(Transfer(kInt, 4, [](const DialogUser& user) { user.AnswerBox(); }), IDCANCEL);
    EXPECT_TRUE(target.Puts().empty());
}

TEST_F(TransferDialogTest, ClosingItUnderItsMessageEndsItOnce) {
    target.FailAt(0);
    EXPECT_EQ(Transfer(kInt, 4,
                       [](const DialogUser& user) {
                           const HWND box = user.MessageBox();
                           SendMessageW(GetWindow(box, GW_OWNER), WM_CLOSE, 0, 0);
                           EXPECT_TRUE(IsWindow(box));
                           user.Press(box, IDOK);
                       }),
              IDCANCEL);
}

}  // namespace
}  // namespace orvell::ui
