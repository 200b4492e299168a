#include <cstring>

#include "dialog_fixture.h"

namespace orvell::ui {
namespace {

using test::DialogUser;

class ParameterDialogTest : public DialogTest {};

TEST_F(ParameterDialogTest, ShowsTheRecordAndGivesItBackUnchangedOnCancel) {
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
        Sleep(4000);
        user.Press(dialog, IDCANCEL);
    }));
    EXPECT_EQ(std::memcmp(&owned.record, &before, sizeof(before)), 0);
}

}  // namespace
}  // namespace orvell::ui
