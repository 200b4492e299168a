#include <cstring>
#include <vector>

#include "slots_fixture.h"
#include "unit/values/recording_host.h"

namespace orvell::host {
namespace {

class TransferSlotsTest : public SlotsTest {
  protected:
    /// Reads, checks the result and returns the bytes in hexadecimal digits.
    std::string Read(ParameterRecord& record, std::int32_t expected) {
        EXPECT_EQ(slots::ReadStdParameterOnline(&record, &online, nullptr), expected);
        return Hex(record);
    }

    static std::string Hex(const ParameterRecord& record) {
        std::string digits;
        const auto* byte = static_cast<const std::uint8_t*>(record.bytes);
        for (std::uint32_t i = 0; record.bytes != nullptr && i < record.length; ++i) {
            digits += "0123456789ABCDEF"[byte[i] >> 4];
            digits += "0123456789ABCDEF"[byte[i] & 15];
        }
        return digits;
    }

    values::RecordingHost host;
    OnlineAccessRecord online = host.Online();
    FillRecord fill = host.Fill();
};

TEST_F(TransferSlotsTest, ReadingFillsANewBuffer) {
    host.supply = {0x34, 0x12};
    ParameterRecord record = Record(kPoint, bytes, 3, 2);
    record.attribute = 5;
    record.format = 3;
    EXPECT_EQ(Read(record, 1), "341234123412341234123412");
    EXPECT_NE(record.bytes, static_cast<void*>(bytes)) << "the host's old bytes stay its own";
    EXPECT_EQ(record.identifier, kPoint);
    EXPECT_EQ(record.count, 2U);
    EXPECT_EQ(record.attribute, 5);
    EXPECT_EQ(record.format, 3);
    ASSERT_EQ(host.calls.size(), 6U);
    EXPECT_EQ(host.calls[4].first, 1U);
    EXPECT_EQ(host.calls[4].second, 2U);
    slots::FreeStdParameter(&record);
}

TEST_F(TransferSlotsTest, ReadingNothingLeavesTheRecord) {
    for (ParameterRecord record :
         {Record(kWord, bytes, 12, 0), Record(kLoop, bytes, 12), Record(kEmpty, bytes, 12, 7)}) {
        const ParameterRecord before = record;
        EXPECT_EQ(slots::ReadStdParameterOnline(&record, &online, nullptr), 1);
        EXPECT_EQ(slots::FillStdParameterValue(&record, &fill), 1);
        EXPECT_EQ(std::memcmp(&record, &before, sizeof record), 0);
    }
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(TransferSlotsTest, ReadingWhatFailsLeavesTheRecord) {
    const ParameterRecord before = Record(kPoint, bytes, 12, 2);
    ParameterRecord record = before;
    host.answer = 0;
    Read(record, -1);
    host.answer = 1;
    online = host.Online("Get16");
    Read(record, -1);
    EXPECT_EQ(slots::ReadStdParameterOnline(&record, nullptr, nullptr), -1);
    EXPECT_EQ(slots::FillStdParameterValue(&record, nullptr), 0);
    EXPECT_EQ(std::memcmp(&record, &before, sizeof record), 0);
}

TEST_F(TransferSlotsTest, UnknownAreasGiveZero) {
    for (const std::int32_t id : {kUnknown, kUnresolved, 0}) {
        ParameterRecord record = Record(id, bytes, 12);
        EXPECT_EQ(slots::ReadStdParameterOnline(&record, &online, nullptr), 0) << id;
        EXPECT_EQ(slots::WriteStdParameterOnline(&record, &online, nullptr), 0) << id;
        EXPECT_EQ(slots::FillStdParameterValue(&record, &fill), 0) << id;
        EXPECT_EQ(slots::FillStdParameterValueInPlace(&record, &fill), 0) << id;
        EXPECT_EQ(slots::ConvertStdParameter(&record, &online), 0) << id;
    }
    EXPECT_EQ(slots::ReadStdParameterOnline(nullptr, &online, nullptr), 0);
    EXPECT_EQ(slots::WriteStdParameterOnline(nullptr, &online, nullptr), 0);
    EXPECT_EQ(slots::FillStdParameterValue(nullptr, &fill), 0);
    EXPECT_EQ(slots::FillStdParameterValueInPlace(nullptr, &fill), 0);
    EXPECT_EQ(slots::ConvertStdParameter(nullptr, &online), 0);
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(TransferSlotsTest, ReadingStopsWhenTheHostCancels) {
    ParameterRecord record = Record(kPoint, bytes, 12, 2);
    std::uint32_t cancel = 0x100;
    EXPECT_EQ(slots::ReadStdParameterOnline(&record, &online, &cancel), -1);
    EXPECT_TRUE(host.calls.empty());
    EXPECT_EQ(record.bytes, static_cast<void*>(bytes));
    cancel = 0;
    EXPECT_EQ(slots::ReadStdParameterOnline(&record, &online, &cancel), 1);
    slots::FreeStdParameter(&record);
}

TEST_F(TransferSlotsTest, TheHostMayCancelInTheMiddle) {
    volatile std::uint32_t cancel = 0;
    host.onCall = [&] { cancel = host.calls.size() == 2 ? 0x80000000 : 0; };
    ParameterRecord record = Record(kPoint, bytes, 12, 2);
    EXPECT_EQ(slots::ReadStdParameterOnline(&record, &online, &cancel), -1);
    EXPECT_EQ(host.calls.size(), 2U);
    EXPECT_EQ(record.bytes, static_cast<void*>(bytes));
    host.calls.clear();
    cancel = 0;
    EXPECT_EQ(slots::WriteStdParameterOnline(&record, &online, &cancel), 0);
    EXPECT_EQ(host.calls.size(), 2U);
}

/// The definitions are walked while the host's functions run.
TEST_F(TransferSlotsTest, DefinitionsStayWhileTheHostIsCalled) {
    host.onCall = [] {
        slots::CloseStdMemConfig(1);
        slots::LoadStdMemConfig(nullptr, 2);
        slots::MergeStdMemConfig(nullptr, "C:\\SOURCE", 3);
    };
    ParameterRecord record = Record(kPoint, bytes, 12, 2);
    EXPECT_EQ(slots::WriteStdParameterOnline(&record, &online, nullptr), 1);
    EXPECT_EQ(slots::ConvertStdParameter(&record, &online), 1);
    EXPECT_EQ(slots::FillStdParameterValueInPlace(&record, &fill), 1);
    EXPECT_EQ(slots::FillStdParameterValue(&record, &fill), 1);
    slots::FreeStdParameter(&record);
    record = Record(kPoint, bytes, 12, 2);
    EXPECT_EQ(slots::ReadStdParameterOnline(&record, &online, nullptr), 1);
    slots::FreeStdParameter(&record);
    EXPECT_TRUE(messages.shown.empty());

    host.onCall = nullptr;
    slots::CloseStdMemConfig(1);
    EXPECT_EQ(slots::GetStdStructSize(kPoint), 0U) << "the refused token was not used up";
}

TEST_F(TransferSlotsTest, AnImpossibleSizeIsRefused) {
    ParameterRecord record = Record(kPoint, bytes, 12, 0xFFFFFFFF);
    EXPECT_EQ(slots::ReadStdParameterOnline(&record, &online, nullptr), 0);
    EXPECT_EQ(slots::FillStdParameterValue(&record, &fill), 0);
    record.count = 0x80000000;  // twice this is 0 in 32 bits
    record.identifier = kWord;
    EXPECT_EQ(slots::ReadStdParameterOnline(&record, &online, nullptr), 0);
    EXPECT_TRUE(host.calls.empty());
}

/// The leak detector sees a buffer that is neither handed over nor freed.
TEST_F(TransferSlotsTest, WhatDoesNotFitIntoTheRecordIsFreed) {
    for (const std::uint32_t size : {16U, 18U, 19U}) {
        ParameterRecord record = Record(kWord, bytes, 12, 2);
        record.size = size;
        EXPECT_EQ(slots::ReadStdParameterOnline(&record, &online, nullptr), 1);
        EXPECT_EQ(record.size, size);
        EXPECT_EQ(record.length, 4U);
    }
    ParameterRecord record = Record(kWord, bytes, 12, 2);
    record.size = 20;
    EXPECT_EQ(slots::ReadStdParameterOnline(&record, &online, nullptr), 1);
    EXPECT_NE(record.bytes, static_cast<void*>(bytes));
    std::free(record.bytes);
}

TEST_F(TransferSlotsTest, WritingReportsWhetherEverythingWasWritten) {
    ParameterRecord record = Record(kPoint, bytes, 12, 2);
    EXPECT_EQ(slots::WriteStdParameterOnline(&record, &online, nullptr), 1);
    ASSERT_EQ(host.calls.size(), 6U);
    EXPECT_EQ(host.calls[0].function, "Alt16");
    EXPECT_EQ(host.calls[5].first, 1U);
    EXPECT_EQ(host.calls[5].second, 4U);
    record.length = 11;
    EXPECT_EQ(slots::WriteStdParameterOnline(&record, &online, nullptr), 0);
    record.bytes = nullptr;
    EXPECT_EQ(slots::WriteStdParameterOnline(&record, &online, nullptr), 0);
    EXPECT_EQ(slots::WriteStdParameterOnline(&record, nullptr, nullptr), 0);
}

TEST_F(TransferSlotsTest, WritingTakesACountOfZeroAsASingleValue) {
    ParameterRecord record = Record(kWord, bytes, 2, 0);
    EXPECT_EQ(slots::WriteStdParameterOnline(&record, &online, nullptr), 1);
    EXPECT_EQ(host.calls.size(), 1U);
}

TEST_F(TransferSlotsTest, ACancelledWritingHasNotWrittenEverything) {
    ParameterRecord record = Record(kPoint, bytes, 12, 2);
    const std::uint32_t cancel = 1;
    EXPECT_EQ(slots::WriteStdParameterOnline(&record, &online,
                                             const_cast<volatile std::uint32_t*>(&cancel)),
              0);
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(TransferSlotsTest, ConvertingUsesTheFirstSetters) {
    ParameterRecord record = Record(kPoint, bytes, 6);
    online.size = 32;  // a table that ends behind the first seven setters
    EXPECT_EQ(slots::ConvertStdParameter(&record, &online), 1);
    ASSERT_EQ(host.calls.size(), 3U);
    EXPECT_EQ(host.calls[2].function, "Put16");
    online.size = 8;
    EXPECT_EQ(slots::ConvertStdParameter(&record, &online), 0) << "the word setter is cut off";
    EXPECT_EQ(slots::WriteStdParameterOnline(&record, &online, nullptr), 0);
}

TEST_F(TransferSlotsTest, FillingHandsOverWhatTheHostPutIntoTheBytes) {
    host.supply = {0x21, 0x43};
    ParameterRecord record = Record(kWord, nullptr, 0, 2);
    EXPECT_EQ(slots::FillStdParameterValue(&record, &fill), 1);
    EXPECT_EQ(Hex(record), "21432143");
    EXPECT_EQ(host.calls[1].kind, 2U);
    slots::FreeStdParameter(&record);
    host.answer = 0;
    record = Record(kWord, bytes, 4, 2);
    EXPECT_EQ(slots::FillStdParameterValue(&record, &fill), 0);
    EXPECT_EQ(host.calls.size(), 4U) << "an element that fails does not stop the others";
    EXPECT_EQ(record.bytes, static_cast<void*>(bytes));
}

TEST_F(TransferSlotsTest, FillingInPlaceChangesTheHostsBytes) {
    host.supply = {0x21, 0x43};
    ParameterRecord record = Record(kPoint, bytes, 6);
    EXPECT_EQ(slots::FillStdParameterValueInPlace(&record, &fill), 1);
    EXPECT_EQ(Hex(record), "214321432143");
    EXPECT_EQ(record.bytes, static_cast<void*>(bytes));
    record.length = 5;
    EXPECT_EQ(slots::FillStdParameterValueInPlace(&record, &fill), 0);
    record.bytes = nullptr;
    host.calls.clear();
    EXPECT_EQ(slots::FillStdParameterValueInPlace(&record, &fill), 0);
    EXPECT_TRUE(host.calls.empty());
    EXPECT_EQ(slots::FillStdParameterValueInPlace(&record, nullptr), 0);
}

}  // namespace
}  // namespace orvell::host
