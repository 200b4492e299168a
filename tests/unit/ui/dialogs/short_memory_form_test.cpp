// Memory runs out at every single allocation of an edit: nothing is lost, and the record is whole.

#include "form_fixture.h"
#include "support/short_memory.h"
#include "ui/dialogs/transfer_task.h"

namespace orvell::ui {
namespace {

using test::HeldBlocks;
using test::RunWithEveryShortage;
using test::Shortage;
using test::SuspendShortage;
using values::BaseTypeCode;
using values::DisplayFormat;
using DroppedElements = ParameterForm::DroppedElements;

constexpr std::uint32_t kPoint = 1;
constexpr std::uint32_t kLabel = 2;
constexpr int kPointRows = 3;

class ShortMemoryFormTest : public testing::Test {
  protected:
    ShortMemoryFormTest() {
        definitions.store.AddImplicitTypes();
        definitions.store.AddType(BasicType("Word with a name of its own", BaseTypeCode::Int, 2));
        definitions.AddArea(kPoint, Structure("Point", {Item("a name of more than a few letters",
                                                             "Word with a name of its own", 2),
                                                        Item("d", "DURATION")}));
        definitions.AddArea(kLabel, BasicType("Label", BaseTypeCode::String, 40));
        definitions.store.ResolveReferences();
        UseForm();  // has all texts loaded
    }

    /// What a user does in the dialog, without windows. False when memory did not suffice; the
    /// record then is what it was before, or what was stored last.
    bool UseForm() {
        SuspendShortage(true);
        OwnedDialogRecord owned(kPoint, Bytes{1, 0, 2, 0, 3, 0, 0, 0});
        const Bytes before = owned.Value();
        SuspendShortage(false);
        const bool isStored = Edit(owned.record);
        SuspendShortage(true);
        const bool isWhole = isStored ? owned.record.count == 2 && owned.Value().size() == 16 &&
                                            owned.Value()[8] == 7 && owned.record.boxWidth == 20
                                      : owned.record.count == 1 && owned.Value() == before;
        EXPECT_TRUE(isWhole) << isStored;
        return isStored;
    }

    bool Edit(DialogParameterRecord& record) {
        try {
            GridModel grid;
            std::string message;
            ParameterForm form(&record, definitions.services);
            form.SetUpGrid(grid);
            if (!form.Open(grid, message) ||
                !form.ChangeVectorLength(grid, 2, DroppedElements::Forget) ||
                !form.ChangeVectorLength(grid, 1, DroppedElements::Keep) ||
                !form.ChangeVectorLength(grid, 2, DroppedElements::Keep)) {
                return false;
            }
            form.ForgetDroppedElements();
            grid.SetItemText(kFirstValueRow + kPointRows, kValueColumn, "7");
            form.NormalizeText(grid, kFirstValueRow + kPointRows);
            return form.TakeBack(grid) && form.Store(20);
        } catch (const std::bad_alloc&) {  // the window procedure sees it
            return false;
        }
    }

    Definitions definitions;
};

TEST_F(ShortMemoryFormTest, AnEditIsStoredWholeOrNotAtAll) {
    bool isStored = false;
    const std::size_t held = HeldBlocks();
    const std::size_t shortages = RunWithEveryShortage(
        [&] { isStored = UseForm(); }, [&](Shortage) { EXPECT_EQ(HeldBlocks(), held); });
    EXPECT_GT(shortages, 50U);
    EXPECT_TRUE(isStored);
}

TEST_F(ShortMemoryFormTest, ALayoutThatFailsLeavesTheFormUsable) {
    OwnedDialogRecord owned(kPoint, Bytes{1, 0, 2, 0, 3, 0, 0, 0});
    std::string message;
    for (const std::uint32_t length : {3U, 1U}) {
        GridModel grid;
        ParameterForm form(&owned.record, definitions.services);
        form.SetUpGrid(grid);
        ASSERT_TRUE(form.Open(grid, message));
        const std::uint32_t before = form.VectorLength();
        ASSERT_TRUE(form.ChangeVectorLength(grid, 2, DroppedElements::Forget));
        const auto lengthIsTwoAgain = [&] {
            return form.ChangeVectorLength(grid, 2, DroppedElements::Forget) &&
                   grid.GetRowCount() == kFirstValueRow + 2 * kPointRows;
        };
        const auto changeLength = [&] {
            SuspendShortage(true);
            ASSERT_TRUE(lengthIsTwoAgain());
            SuspendShortage(false);
            try {
                static_cast<void>(form.ChangeVectorLength(grid, length, DroppedElements::Forget));
            } catch (const std::bad_alloc&) {
            }
        };
        changeLength();
        ASSERT_TRUE(lengthIsTwoAgain());
        const std::size_t held = HeldBlocks();
        const std::size_t shortages = RunWithEveryShortage(changeLength, [&](Shortage) {
            // What the user does next works, whatever the grid shows now.
            EXPECT_TRUE(lengthIsTwoAgain());
            EXPECT_EQ(HeldBlocks(), held);
        });
        EXPECT_GT(shortages, 3U);
        EXPECT_EQ(form.VectorLength(), length);
        EXPECT_EQ(before, 1U);
    }
}

std::int32_t ORVELL_CALL PutText(std::uint32_t, std::uint32_t, const char*) {
    return 1;
}

TEST_F(ShortMemoryFormTest, ATransferWithoutMemoryHasFailed) {
    const Bytes value(80, 'x');
    OnlineAccessRecord host{};
    host.size = sizeof(host);
    host.alternative.PutText = PutText;
    std::optional<resources::StringId> error;
    const std::size_t held = HeldBlocks();
    const auto transfer = [&] {
        TransferTask task(definitions.converters, definitions.store.TypeOfArea(kLabel), 2, value,
                          host);
        task.Start();
        task.Run();
        error = task.Error();
        EXPECT_FALSE(task.IsRunning());
    };
    const std::size_t shortages = RunWithEveryShortage(transfer, [&](Shortage) {
        EXPECT_EQ(error, resources::StringId::OnlineWriteFailed);
        EXPECT_EQ(HeldBlocks(), held);
    });
    EXPECT_GE(shortages, 2U);
    EXPECT_FALSE(error.has_value());
}

}  // namespace
}  // namespace orvell::ui
