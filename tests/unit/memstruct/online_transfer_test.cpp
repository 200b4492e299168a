#include "memstruct/online_transfer.h"

#include "memstruct_fixture.h"
#include "unit/values/recording_host.h"

namespace orvell::test {
namespace {

using memstruct::OnlineTransfer;
using memstruct::WriteOutcome;
using values::RecordingHost;

/// Counts what a transfer asks and tells; cancels at the n-th question.
class RecordingWatch final : public memstruct::TransferWatch {
  public:
    bool IsCancelled() override { return ++questions >= cancelAt; }
    void AddProgress(std::uint32_t bytes) override { progress += bytes; }
    void Pause() override { ++pauses; }

    int cancelAt = 1'000'000;
    int questions = 0;
    int pauses = 0;
    std::uint32_t progress = 0;
};

class OnlineTransferTest : public MemstructTest {
  protected:
    OnlineTransferTest() {
        DefineLists(R"(
            <Type Name="Byte" BaseType="INT" Size="1"/>
            <Type Name="Word" BaseType="UINT" Size="2"/>
            <Type Name="Point" BaseType="Structured">
              <Item Name="x" Type="Byte"/><Item Name="y" Type="Word" Dimension="2"/></Type>
            <Type Name="Empty" BaseType="Structured"/>
            <Type Name="Loop" BaseType="Structured"><Item Name="a" Type="Loop"/></Type>)");
    }

    WriteOutcome Write(const char* type, std::uint32_t count) {
        return OnlineTransfer(converters, Type(type), count).Write(bytes, host.Online(), watch);
    }

    /// "function(first,second)" of each call of the host.
    std::vector<std::string> Calls() const {
        std::vector<std::string> lines;
        for (const RecordingHost::Call& call : host.calls) {
            lines.push_back(call.function + '(' + std::to_string(call.first) + ',' +
                            std::to_string(call.second) + ')');
        }
        return lines;
    }

    RecordingHost host;
    RecordingWatch watch;
    std::vector<std::uint8_t> bytes{0xFF, 1, 2, 3, 4, 5, 6, 7, 8, 9};
};

using Strings = std::vector<std::string>;

TEST_F(OnlineTransferTest, WritesEveryLeafThroughTheAlternativeSetters) {
    const WriteOutcome outcome = Write("Point", 2);
    EXPECT_TRUE(outcome.succeeded);
    EXPECT_EQ(outcome.elementsWritten, 2U);
    EXPECT_TRUE(outcome.IsWhole(2));
    EXPECT_EQ(Calls(), (Strings{"Alt8(0,0)", "Alt16(0,1)", "Alt16(0,3)", "Alt8(1,0)", "Alt16(1,1)",
                                "Alt16(1,3)"}));
    EXPECT_EQ(host.calls[1].bytes, (std::vector<std::uint8_t>{1, 2}));
    EXPECT_EQ(host.calls[5].bytes, (std::vector<std::uint8_t>{8, 9}));
    EXPECT_EQ(watch.progress, 10U);
    EXPECT_EQ(watch.pauses, 2);
}

TEST_F(OnlineTransferTest, WritesNothingWithoutElementsOrValues) {
    EXPECT_TRUE(Write("Word", 0).IsWhole(0));
    EXPECT_TRUE(Write("Empty", 0xFFFFFFFF).IsWhole(0xFFFFFFFF));
    EXPECT_EQ(Calls(), Strings());
    EXPECT_EQ(watch.pauses, 0);
}

TEST_F(OnlineTransferTest, RefusesTypesWithoutValue) {
    EXPECT_FALSE(Write("Loop", 1).succeeded);
    EXPECT_FALSE(Write("Loop", 0).succeeded);
    EXPECT_FALSE(Write("no such type", 1).succeeded);
    EXPECT_EQ(Calls(), Strings());
}

TEST_F(OnlineTransferTest, FailsWhenTheBytesRunOut) {
    bytes.resize(9);
    const WriteOutcome outcome = Write("Point", 2);
    EXPECT_FALSE(outcome.succeeded);
    EXPECT_EQ(outcome.elementsWritten, 1U);
    EXPECT_EQ(Calls().size(), 5U);
    EXPECT_EQ(watch.progress, 8U);
}

TEST_F(OnlineTransferTest, StopsAtTheFirstSetterThatFails) {
    host.answer = 0;
    const WriteOutcome outcome = Write("Point", 2);
    EXPECT_FALSE(outcome.succeeded);
    EXPECT_EQ(outcome.elementsWritten, 0U);
    EXPECT_EQ(Calls().size(), 1U);
    EXPECT_EQ(watch.progress, 0U);
}

TEST_F(OnlineTransferTest, FailsWithoutTheSetter) {
    EXPECT_FALSE(OnlineTransfer(converters, Type("Point"), 1)
                     .Write(bytes, host.Online("Alt16"), watch)
                     .succeeded);
    EXPECT_EQ(Calls(), Strings{"Alt8(0,0)"});
}

/// Asked before an element, inside it once more after the pause, and before every further leaf.
TEST_F(OnlineTransferTest, StopsWhereverItIsCancelled) {
    const std::vector<std::size_t> expectedCalls{0, 0, 1, 2, 3, 3, 4, 5};
    const std::vector<std::uint32_t> expectedElements{0, 0, 0, 0, 1, 1, 1, 1};
    for (std::size_t i = 0; i < expectedCalls.size(); ++i) {
        host.calls.clear();
        watch.questions = 0;
        watch.cancelAt = static_cast<int>(i) + 1;
        const WriteOutcome outcome = Write("Point", 2);
        EXPECT_TRUE(outcome.succeeded) << i;
        EXPECT_EQ(outcome.elementsWritten, expectedElements[i]) << i;
        EXPECT_FALSE(outcome.IsWhole(2)) << i;
        EXPECT_EQ(host.calls.size(), expectedCalls[i]) << i;
    }
    watch.questions = 0;
    watch.cancelAt = static_cast<int>(expectedCalls.size()) + 1;
    EXPECT_TRUE(Write("Point", 2).IsWhole(2));
}

TEST_F(OnlineTransferTest, AsksOnceBeforeASimpleElement) {
    EXPECT_TRUE(Write("Word", 3).IsWhole(3));
    EXPECT_EQ(watch.questions, 3);
    EXPECT_EQ(watch.pauses, 3);
}

TEST_F(OnlineTransferTest, ReadsEveryLeafThroughTheGetters) {
    host.supply = {7, 1};
    bytes.assign(5, 0);
    EXPECT_TRUE(OnlineTransfer(converters, Type("Point"), 1).Read(bytes, host.Online(), watch));
    EXPECT_EQ(Calls(), (Strings{"Get8(0,0)", "Get16(0,1)", "Get16(0,3)"}));
    EXPECT_EQ(bytes, (std::vector<std::uint8_t>{7, 7, 1, 7, 1}));
    EXPECT_EQ(watch.pauses, 0);
    EXPECT_EQ(watch.progress, 5U);
}

TEST_F(OnlineTransferTest, ReadingFailsWhenCancelledAndWhenAGetterFails) {
    const OnlineTransfer transfer(converters, Type("Point"), 2);
    watch.cancelAt = 3;
    EXPECT_FALSE(transfer.Read(bytes, host.Online(), watch));
    EXPECT_EQ(Calls().size(), 2U);
    watch.cancelAt = 1'000;
    EXPECT_FALSE(transfer.Read(bytes, host.Online("Get16"), watch));
    EXPECT_FALSE(transfer.Read(std::span(bytes).first(9), host.Online(), watch));
}

TEST_F(OnlineTransferTest, PutsThroughTheFirstSetters) {
    const OnlineTransfer transfer(converters, Type("Point"), 2);
    EXPECT_TRUE(transfer.Put(bytes, host.Online()));
    EXPECT_EQ(Calls(), (Strings{"Put8(0,0)", "Put16(0,1)", "Put16(0,3)", "Put8(1,0)", "Put16(1,1)",
                                "Put16(1,3)"}));
    EXPECT_FALSE(transfer.Put(bytes, host.Online("Put16")));
    EXPECT_FALSE(transfer.Put(std::span(bytes).first(9), host.Online()));
    EXPECT_FALSE(OnlineTransfer(converters, Type("Loop"), 1).Put(bytes, host.Online()));
}

TEST_F(OnlineTransferTest, RawPutGoesOnBehindALeafThatFails) {
    const OnlineTransfer transfer(converters, Type("Point"), 2);
    EXPECT_TRUE(transfer.PutRaw(bytes, host.Fill()));
    EXPECT_EQ(host.calls.size(), 6U);
    host.calls.clear();
    host.answer = 0;
    EXPECT_FALSE(transfer.PutRaw(bytes, host.Fill()));
    EXPECT_EQ(host.calls.size(), 6U);
}

TEST_F(OnlineTransferTest, RawPutHandsOutWhatTheBytesStillHold) {
    const OnlineTransfer transfer(converters, Type("Point"), 2);
    EXPECT_FALSE(transfer.PutRaw(std::span(bytes).first(9), host.Fill()));
    ASSERT_EQ(host.calls.size(), 6U);
    EXPECT_EQ(host.calls[5].bytes, (std::vector<std::uint8_t>{8}));
}

TEST_F(OnlineTransferTest, RawPutMayFillTheBytes) {
    host.supply = {0x55, 0x66};
    bytes.assign(5, 0);
    EXPECT_TRUE(OnlineTransfer(converters, Type("Point"), 1).PutRaw(bytes, host.Fill()));
    EXPECT_EQ(bytes, (std::vector<std::uint8_t>{0x55, 0x55, 0x66, 0x55, 0x66}));
    EXPECT_FALSE(
        OnlineTransfer(converters, Type("Point"), 1).PutRaw(bytes, {sizeof(FillRecord), nullptr}));
}

}  // namespace
}  // namespace orvell::test
