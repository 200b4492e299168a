#include <windows.h>

#include <commctrl.h>

#include <array>

#include <cstring>

#include "dialog_fixture.h"

namespace orvell::ui {
namespace {

using test::DialogUser;

class ParameterDialogStartTest : public DialogTest {
  protected:
    [[nodiscard]] static bool IsShown(HWND dialog, int control) {
        return IsWindowVisible(GetDlgItem(dialog, control)) != FALSE;
    }
    [[nodiscard]] static bool IsEnabled(HWND dialog, int control) {
        return IsWindowEnabled(GetDlgItem(dialog, control)) != FALSE;
    }
    [[nodiscard]] static LRESULT Send(HWND dialog, int control, UINT message, WPARAM first = 0,
                                      LPARAM second = 0) {
        return SendDlgItemMessageW(dialog, control, message, first, second);
    }
    [[nodiscard]] static bool IsVector(HWND dialog) {
        return Send(dialog, ORVELL_VECTOR_CHECK, BM_GETCHECK) == BST_CHECKED;
    }
};

TEST_F(ParameterDialogStartTest, ShowsTheRecordAndGivesItBackUnchangedOnCancel) {
    OwnedDialogRecord owned(kPair, {5, 0, 1, 0});
    owned.record.boxWidth = 12;
    owned.record.name = "Pump";
    owned.record.extension = "Limit";
    const DialogParameterRecord before = owned.record;
    EXPECT_FALSE(EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        EXPECT_EQ(GridRows(user, dialog),
                  (Rows{"Element.a=5", "Element.m[0]=On", "Element.m[1]=Off"}));
        EXPECT_EQ(user.Text(dialog, ORVELL_AREA_NAME), "Pump - Limit");
        EXPECT_EQ(user.Text(dialog, ORVELL_BOX_WIDTH_EDIT), "10");
        EXPECT_TRUE(IsEnabled(dialog, IDOK));
        user.Press(dialog, IDCANCEL);
    }));
    EXPECT_EQ(std::memcmp(&owned.record, &before, sizeof(before)), 0);
}

TEST_F(ParameterDialogStartTest, TheAreaIsCalledByItsTypeWithoutNames) {
    OwnedDialogRecord owned(kInt, {5, 0});
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        EXPECT_EQ(user.Text(dialog, ORVELL_AREA_NAME), "Int");
        user.OnThread([&] { EXPECT_EQ(GridOf(dialog).AccessibleName(), "Int"); });
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(ParameterDialogStartTest, OffersTheVectorInItsModeOnly) {
    for (const std::uint32_t mode : {0U, 1U, 2U, 3U}) {
        OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
        owned.record.mode = mode;
        EditWith(owned, [&](const DialogUser& user) {
            const HWND dialog = ParameterDialogOf(user);
            for (const int control :
                 {ORVELL_VECTOR_CHECK, ORVELL_VECTOR_LENGTH_EDIT, ORVELL_VECTOR_LENGTH_SPIN}) {
                EXPECT_EQ(IsShown(dialog, control), mode == 1) << mode << " " << control;
            }
            EXPECT_EQ(GridRows(user, dialog).size(), 3U) << mode;
            user.Press(dialog, IDCANCEL);
        });
    }
}

TEST_F(ParameterDialogStartTest, AVectorShowsItsLength) {
    OwnedDialogRecord owned(kInt, {1, 0, 2, 0, 3, 0}, 3);
    owned.record.mode = 1;
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        EXPECT_TRUE(IsVector(dialog));
        EXPECT_EQ(user.Text(dialog, ORVELL_VECTOR_LENGTH_EDIT), "3");
        EXPECT_TRUE(IsEnabled(dialog, ORVELL_VECTOR_LENGTH_EDIT));
        EXPECT_TRUE(IsEnabled(dialog, ORVELL_VECTOR_LENGTH_SPIN));
        EXPECT_EQ(Send(dialog, ORVELL_VECTOR_LENGTH_SPIN, UDM_GETPOS32), 3);
        EXPECT_EQ(Send(dialog, ORVELL_VECTOR_LENGTH_EDIT, EM_GETLIMITTEXT), 3);
        user.OnThread([&] { EXPECT_EQ(GetFocus(), GetDlgItem(dialog, ORVELL_VECTOR_CHECK)); });
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(ParameterDialogStartTest, ASingleValueHasADisabledLengthOfOne) {
    OwnedDialogRecord owned(kInt, {1, 0});
    owned.record.mode = 1;
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        EXPECT_FALSE(IsVector(dialog));
        EXPECT_TRUE(IsEnabled(dialog, ORVELL_VECTOR_CHECK));
        EXPECT_EQ(user.Text(dialog, ORVELL_VECTOR_LENGTH_EDIT), "1");
        EXPECT_FALSE(IsEnabled(dialog, ORVELL_VECTOR_LENGTH_EDIT));
        EXPECT_FALSE(IsEnabled(dialog, ORVELL_VECTOR_LENGTH_SPIN));
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(ParameterDialogStartTest, SpinsKnowTheirLimitsAndGetFaster) {
    OwnedDialogRecord owned(kInt, {1, 0});
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        user.OnThread([&] {
            const struct {
                int spin;
                int edit;
                int smallest;
                int largest;
                UINT steps[3];
            } spins[] = {
                {ORVELL_BOX_WIDTH_SPIN, ORVELL_BOX_WIDTH_EDIT, 10, 995, {5, 20, 50}},
                {ORVELL_VECTOR_LENGTH_SPIN, ORVELL_VECTOR_LENGTH_EDIT, 2, 999, {1, 5, 20}}};
            for (const auto& [spin, edit, smallest, largest, steps] : spins) {
                int low = 0;
                int high = 0;
                SendDlgItemMessageW(dialog, spin, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low),
                                    reinterpret_cast<LPARAM>(&high));
                EXPECT_EQ(low, smallest);
                EXPECT_EQ(high, largest);
                UDACCEL accelerations[4] = {};
                EXPECT_EQ(
                    Send(dialog, spin, UDM_GETACCEL, 4, reinterpret_cast<LPARAM>(accelerations)),
                    3);
                constexpr std::array<UINT, 3> kSeconds{0, 2, 5};
                for (std::size_t i = 0; i < 3; ++i) {
                    EXPECT_EQ(accelerations[i].nSec, kSeconds.at(i));
                    EXPECT_EQ(accelerations[i].nInc, steps[i]);
                }
                EXPECT_EQ(reinterpret_cast<HWND>(Send(dialog, spin, UDM_GETBUDDY)),
                          GetDlgItem(dialog, edit));
            }
        });
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(ParameterDialogStartTest, TheBoxWidthIsRoundedDownAndLimited) {
    const std::pair<std::uint32_t, const char*> widths[] = {
        {0, "10"}, {12, "10"}, {33, "30"}, {1000, "995"}, {0xFFFFFFFFU, "995"}};
    for (const auto& [stored, shown] : widths) {
        OwnedDialogRecord owned(kInt, {1, 0});
        owned.record.boxWidth = stored;
        EditWith(owned, [&](const DialogUser& user) {
            const HWND dialog = ParameterDialogOf(user);
            EXPECT_EQ(user.Text(dialog, ORVELL_BOX_WIDTH_EDIT), shown);
            EXPECT_EQ(Send(dialog, ORVELL_BOX_WIDTH_EDIT, EM_GETLIMITTEXT), 3);
            user.Press(dialog, IDCANCEL);
        });
    }
}

TEST_F(ParameterDialogStartTest, OffersFormatsForIntegersWithAStoredFormat) {
    OwnedDialogRecord owned(kInt, {0xFF, 0xFF});
    owned.record.format = 0x80;
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        EXPECT_TRUE(IsShown(dialog, ORVELL_FORMAT_BOX));
        EXPECT_TRUE(IsShown(dialog, ORVELL_FORMAT_LABEL));
        EXPECT_EQ(Send(dialog, ORVELL_FORMAT_BOX, CB_GETCOUNT), 3);
        EXPECT_EQ(user.Text(dialog, ORVELL_FORMAT_BOX), "signed");
        for (WPARAM index = 0; index < 3; ++index) {
            EXPECT_EQ(Send(dialog, ORVELL_FORMAT_BOX, CB_GETITEMDATA, index),
                      static_cast<LRESULT>(index + 1));
        }
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(ParameterDialogStartTest, HidesTheFormatsOtherwise) {
    OwnedDialogRecord unmarked(kInt, {1, 0});
    unmarked.record.format = 0x03;
    OwnedDialogRecord noInteger(kPair, Bytes(4));
    noInteger.record.format = 0x83;
    for (OwnedDialogRecord* owned : {&unmarked, &noInteger}) {
        EditWith(*owned, [&](const DialogUser& user) {
            const HWND dialog = ParameterDialogOf(user);
            EXPECT_FALSE(IsShown(dialog, ORVELL_FORMAT_BOX));
            EXPECT_FALSE(IsShown(dialog, ORVELL_FORMAT_LABEL));
            user.Press(dialog, IDCANCEL);
        });
    }
}

TEST_F(ParameterDialogStartTest, HasItsSymbols) {
    OwnedDialogRecord owned(kInt, {1, 0});
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        EXPECT_NE(SendMessageW(dialog, WM_GETICON, ICON_BIG, 0), 0);
        EXPECT_NE(SendMessageW(dialog, WM_GETICON, ICON_SMALL, 0), 0);
        EXPECT_EQ(SendMessageW(dialog, WM_QUERYDRAGICON, 0, 0),
                  SendMessageW(dialog, WM_GETICON, ICON_BIG, 0));
        user.Press(dialog, IDCANCEL);
    });
}

class FailingStartTest : public ParameterDialogStartTest,
                         public testing::WithParamInterface<std::pair<std::uint32_t, const char*>> {
};

TEST_P(FailingStartTest, SaysWhatIsWrongAndEndsByItself) {
    OwnedDialogRecord owned(GetParam().first, {1, 2, 3, 4});
    const DialogParameterRecord before = owned.record;
    EXPECT_FALSE(EditWith(owned, [&](const DialogUser& user) {
        const HWND box = user.MessageBox();
        EXPECT_EQ(user.Text(GetWindow(box, GW_OWNER), IDOK), "OK") << "owned by the dialog";
        EXPECT_NE(user.TextOfBox(box).find(GetParam().second), std::string::npos)
            << user.TextOfBox(box);
        wchar_t caption[32] = L"";
        GetWindowTextW(box, caption, 32);
        EXPECT_STREQ(caption, L"Fehler !");
        user.Press(box, IDOK);
    }));
    EXPECT_EQ(std::memcmp(&owned.record, &before, sizeof(before)), 0);
}

INSTANTIATE_TEST_SUITE_P(Definitions, FailingStartTest,
                         testing::Values(std::pair{kUnknown, "r die ID 99 konnte keine"},
                                         std::pair{kLost, "mit der Bezeichnung Lost gefunden"},
                                         std::pair{kBroken, "Der Basisdatentyp von Gone fehlt"},
                                         std::pair{kLoop, "Die Definition von Loop oder"},
                                         std::pair{kHuge, "Der Basisdatentyp von Huge fehlt"}));

TEST_F(ParameterDialogStartTest, WithoutARecordItEndsByItself) {
    EXPECT_FALSE(EditWith(nullptr, [](const DialogUser&) {}));
}

TEST_F(ParameterDialogStartTest, ADeadOwnerGivesNoDialog) {
    OwnedDialogRecord owned(kInt, {1, 0});
    const HWND owner =
        CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    DestroyWindow(owner);
    owned.record.owner = owner;
    EXPECT_FALSE(EditWith(owned, [](const DialogUser&) {}));
    owned.record.owner = reinterpret_cast<void*>(0x7FFF1234);
    EXPECT_FALSE(EditWith(owned, [](const DialogUser&) {}));
}

TEST_F(ParameterDialogStartTest, MissingBytesShowDefaults) {
    OwnedDialogRecord owned(kPair, {7});
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        EXPECT_EQ(GridRows(user, dialog),
                  (Rows{"Element.a=0", "Element.m[0]=Off", "Element.m[1]=Off"}));
        user.Press(dialog, IDCANCEL);
    });
}

}  // namespace
}  // namespace orvell::ui
