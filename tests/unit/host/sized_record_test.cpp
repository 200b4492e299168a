#include "host/sized_record.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <vector>

namespace orvell::host {
namespace {

using Words = std::vector<std::uint32_t>;

TEST(CopySizedTable, CopiesAsManyBytesAsBothSidesHave) {
    Words source{12, 1, 2};
    Words destination{16, 7, 7, 7};
    CopySizedTable(source.data(), destination.data(), false);
    EXPECT_EQ(destination, (Words{16, 1, 2, 7}));
}

TEST(CopySizedTable, MovesTheContentsOutOfTheSource) {
    Words source{12, 1, 2};
    Words destination{8, 0};
    CopySizedTable(source.data(), destination.data(), false);
    EXPECT_EQ(source, (Words{12, 0, 2})) << "only what was copied is zeroed";
    EXPECT_EQ(destination, (Words{8, 1}));
}

TEST(CopySizedTable, ReadOnlyFormLeavesTheSource) {
    const Words source{12, 1, 2};
    Words destination{12, 0, 0};
    CopySizedTable(static_cast<const void*>(source.data()), destination.data(), false);
    EXPECT_EQ(source, (Words{12, 1, 2}));
    EXPECT_EQ(destination, (Words{12, 1, 2}));
}

TEST(CopySizedTable, ClearsTheWholeDestinationWhenAsked) {
    Words source{8, 5};
    Words destination{16, 9, 9, 9, 0xABABABAB};
    CopySizedTable(source.data(), destination.data(), true);
    EXPECT_EQ(destination, (Words{16, 5, 0, 0, 0xABABABAB}));
}

TEST(CopySizedTable, NullSourceStillClears) {
    Words destination{12, 9, 9};
    CopySizedTable(static_cast<void*>(nullptr), destination.data(), true);
    EXPECT_EQ(destination, (Words{12, 0, 0}));
}

TEST(CopySizedTable, NullDestinationLeavesTheSource) {
    Words source{8, 5};
    CopySizedTable(source.data(), nullptr, true);
    EXPECT_EQ(source, (Words{8, 5}));
}

TEST(CopySizedTable, SizesBelowAWordTouchNothingButKeepTheSizeWords) {
    for (std::uint32_t size = 0; size < 4; ++size) {
        Words source{size, 5};
        Words destination{12, 7, 7};
        CopySizedTable(source.data(), destination.data(), false);
        EXPECT_EQ(source, (Words{size, 5}));
        EXPECT_EQ(destination, (Words{12, 7, 7}));

        Words fullSource{12, 1, 2};
        Words shortDestination{size, 7};
        CopySizedTable(fullSource.data(), shortDestination.data(), true);
        EXPECT_EQ(fullSource, (Words{12, 1, 2}));
        EXPECT_EQ(shortDestination, (Words{size, 7}));
    }
}

TEST(CopySizedTable, AHugeSourceSizeIsLimitedByTheDestination) {
    Words source{0xFFFFFFFF, 1, 2};
    Words destination{12, 0, 0};
    CopySizedTable(source.data(), destination.data(), false);
    EXPECT_EQ(destination, (Words{12, 1, 2}));
    EXPECT_EQ(source, (Words{0xFFFFFFFF, 0, 0}));
}

// A parameter record with every byte set but the size, as far as `size` reaches.
std::array<unsigned char, sizeof(ParameterRecord)> HostRecord(std::uint32_t size) {
    std::array<unsigned char, sizeof(ParameterRecord)> bytes;
    bytes.fill(0xEE);
    std::memcpy(bytes.data(), &size, sizeof(size));
    return bytes;
}

const ParameterRecord* AsRecord(const void* bytes) {
    return static_cast<const ParameterRecord*>(bytes);
}

TEST(ReadRecord, NullCountsAsAllZero) {
    const ParameterRecord record = ReadRecord<ParameterRecord>(nullptr);
    EXPECT_EQ(record.size, sizeof(ParameterRecord));
    EXPECT_EQ(record.identifier, 0);
    EXPECT_EQ(record.bytes, nullptr);
}

TEST(ReadRecord, EverySizeIsReadAsFarAsItReaches) {
    for (std::uint32_t size = 0; size <= 40; ++size) {
        alignas(4) auto host = HostRecord(size);
        const ParameterRecord record = ReadRecord(AsRecord(host.data()));
        EXPECT_EQ(record.size, sizeof(ParameterRecord));
        EXPECT_EQ(record.identifier != 0, size >= 5) << size;
        EXPECT_EQ(record.count != 0, size >= 9) << size;
        EXPECT_EQ(record.length != 0, size >= 13) << size;
        EXPECT_EQ(record.bytes != nullptr, size >= 20) << "half a pointer is none: " << size;
        EXPECT_EQ(record.attribute != 0, size >= 21) << size;
        EXPECT_EQ(record.format != 0, size >= 25) << size;
    }
}

TEST(ReadRecord, HalfANumberIsItsLowBytes) {
    alignas(4) auto host = HostRecord(22);
    EXPECT_EQ(ReadRecord(AsRecord(host.data())).attribute, 0xEEEE);
}

TEST(ReadRecord, ACutPointerAtTheEndOfARecordIsNone) {
    alignas(4) std::array<unsigned char, 12> host{11, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1};
    const auto record = ReadRecord(reinterpret_cast<const ConfigurationRecord*>(host.data()));
    EXPECT_NE(record.owner, nullptr);
    EXPECT_EQ(record.path, nullptr);
}

TEST(HandOverTable, GivesWholeSlotsOnly) {
    for (std::uint32_t size = 0; size <= 20; ++size) {
        Words own{16, 0x11111111, 0x22222222, 0x33333333};
        Words host{size, 0xCCCCCCCC, 0xCCCCCCCC, 0xCCCCCCCC, 0xCCCCCCCC, 0xCCCCCCCC};
        HandOverTable(own.data(), host.data());
        EXPECT_EQ(host[0], size);
        for (std::uint32_t word = 1; word < host.size(); ++word) {
            const std::uint32_t end = (word + 1) * 4;
            const bool isSlot = word < own.size();
            if (end <= size) {
                EXPECT_EQ(host[word], isSlot ? word * 0x11111111 : 0) << size;
            } else if (size <= end - 4) {
                EXPECT_EQ(host[word], 0xCCCCCCCC) << "nothing behind the table: " << size;
            } else {
                EXPECT_EQ(host[word] & 0xFF, 0U) << "no part of a slot: " << size;
            }
        }
    }
}

TEST(TakeRecord, EmptiesTheHostsRecord) {
    int value = 0;
    ParameterRecord host{sizeof(ParameterRecord), 5, 1, 4, &value, 1, 3, {}};
    const ParameterRecord taken = TakeRecord(&host);
    EXPECT_EQ(taken.bytes, &value);
    EXPECT_EQ(taken.identifier, 5);
    EXPECT_EQ(host.size, sizeof(ParameterRecord));
    EXPECT_EQ(host.identifier, 0);
    EXPECT_EQ(host.bytes, nullptr);
    EXPECT_EQ(host.format, 0);
}

}  // namespace
}  // namespace orvell::host
