#include "ui/dialogs/transfer_task.h"

#include <thread>

#include "form_fixture.h"

namespace orvell::ui {
namespace {

using resources::StringId;
using values::BaseTypeCode;

std::vector<std::uint32_t> written;
std::uint32_t failAt = UINT32_MAX;
TransferTask* cancelledBySetter = nullptr;

std::int32_t ORVELL_CALL Put16(std::uint32_t first, std::uint32_t, std::uint16_t value) {
    if (cancelledBySetter != nullptr) {
        cancelledBySetter->Cancel();
    }
    if (first == failAt) {
        return 0;
    }
    written.push_back(value);
    return 1;
}

std::int32_t ORVELL_CALL ThrowingPut16(std::uint32_t, std::uint32_t, std::uint16_t) {
    throw std::bad_alloc();
}

class TransferTaskTest : public testing::Test {
  protected:
    TransferTaskTest() {
        definitions.AddArea(1, BasicType("Word", BaseTypeCode::UInt, 2));
        definitions.store.ResolveReferences();
        host.size = sizeof(host);
        host.alternative.Put16 = Put16;
        written.clear();
        failAt = UINT32_MAX;
        cancelledBySetter = nullptr;
    }

    [[nodiscard]] const memstruct::TypeDef* Word() const { return definitions.store.TypeOfArea(1); }

    Definitions definitions;
    OnlineAccessRecord host{};
    Bytes value{1, 0, 2, 0, 3, 0, 4, 0};
};

TEST_F(TransferTaskTest, WritesAllElementsOnItsThread) {
    TransferTask task(definitions.converters, Word(), 4, value, host);
    EXPECT_FALSE(task.IsRunning());
    task.Start();
    EXPECT_TRUE(task.IsRunning());
    EXPECT_EQ(task.Percentage(), 0);
    std::thread(&TransferTask::Run, &task).join();
    EXPECT_FALSE(task.IsRunning());
    EXPECT_EQ(task.Percentage(), 100);
    EXPECT_FALSE(task.Error().has_value());
    EXPECT_EQ(written, (std::vector<std::uint32_t>{1, 2, 3, 4}));
}

TEST_F(TransferTaskTest, TellsWhenASetterFails) {
    failAt = 3;
    TransferTask task(definitions.converters, Word(), 4, value, host);
    task.Start();
    task.Run();
    EXPECT_FALSE(task.IsRunning());
    EXPECT_EQ(task.Error(), StringId::OnlineWriteFailed);
    EXPECT_EQ(task.Percentage(), 75);
    EXPECT_EQ(written, (std::vector<std::uint32_t>{1, 2, 3})) << "these stay written";
}

TEST_F(TransferTaskTest, TheShareWrittenIsCutToAWholeNumber) {
    failAt = 2;
    TransferTask task(definitions.converters, Word(), 3, std::span(value).first(6), host);
    task.Start();
    task.Run();
    EXPECT_EQ(task.Percentage(), 66) << "two of three elements";
}

TEST_F(TransferTaskTest, ACancelledTransferHasNoError) {
    TransferTask task(definitions.converters, Word(), 4, value, host);
    cancelledBySetter = &task;
    task.Start();
    task.Run();
    EXPECT_TRUE(task.IsCancelled());
    EXPECT_FALSE(task.Error().has_value());
    EXPECT_EQ(written.size(), 1U);
}

TEST_F(TransferTaskTest, NorDoesOneThatFailsAfterItWasCancelled) {
    failAt = 0;
    TransferTask task(definitions.converters, Word(), 4, value, host);
    cancelledBySetter = &task;
    task.Start();
    task.Run();
    EXPECT_FALSE(task.Error().has_value());
    EXPECT_TRUE(written.empty());
}

TEST_F(TransferTaskTest, AShortValueFailsWhereItEnds) {
    TransferTask task(definitions.converters, Word(), 5, value, host);
    task.Start();
    task.Run();
    EXPECT_EQ(task.Error(), StringId::OnlineWriteFailed);
    EXPECT_EQ(written.size(), 4U);
}

TEST_F(TransferTaskTest, NothingToWriteIsAllWritten) {
    TransferTask none(definitions.converters, Word(), 0, value, host);
    none.Start();
    none.Run();
    EXPECT_FALSE(none.Error().has_value());
    TransferTask empty(definitions.converters, Word(), 1, {}, host);
    EXPECT_EQ(empty.Percentage(), 100);
}

TEST_F(TransferTaskTest, AnUnknownTypeFails) {
    TransferTask task(definitions.converters, nullptr, 1, value, host);
    task.Start();
    task.Run();
    EXPECT_EQ(task.Error(), StringId::OnlineWriteFailed);
}

TEST_F(TransferTaskTest, NoExceptionLeavesTheThread) {
    host.alternative.Put16 = ThrowingPut16;
    TransferTask task(definitions.converters, Word(), 1, value, host);
    task.Start();
    std::thread(&TransferTask::Run, &task).join();
    EXPECT_FALSE(task.IsRunning());
    EXPECT_EQ(task.Error(), StringId::OnlineWriteFailed);
}

}  // namespace
}  // namespace orvell::ui
