// Functions of the host that let an exception out at any of their calls: that call has failed, and
// nothing else comes of it.

#include <cstring>
#include <stdexcept>

#include "slots_fixture.h"
#include "unit/values/recording_host.h"

namespace orvell::host {
namespace {

constexpr std::size_t kPointLeaves = 6;  // of two points

class ThrowingHostTest : public SlotsTest {
  protected:
    /// Calls the slot again and again, while the host throws at its call 1, 2, 3, ..., until that
    /// many are not reached any more; `check(n)` after each that was. Returns how many these were.
    template <typename Slot, typename Check>
    std::size_t ThrowAtEveryCall(const Slot& slot, const Check& check) {
        for (std::size_t failing = 1;; ++failing) {
            host.calls.clear();
            host.onCall = [&] {
                if (host.calls.size() == failing) {
                    Throw(failing);
                }
            };
            slot();
            EXPECT_FALSE(TheModule().store.IsInUse());
            if (host.calls.size() < failing) {
                return failing - 1;
            }
            check(failing);
        }
    }

    static void Throw(std::size_t kind) {
        switch (kind % 3) {
            case 0:
                throw 7;
            case 1:
                throw std::runtime_error("of the host's");
            default:
                throw std::bad_alloc();
        }
    }

    void ExpectUnchanged() {
        const ParameterRecord before = Record(kPoint, bytes, 12, 2);
        EXPECT_EQ(std::memcmp(&record, &before, sizeof record), 0);
    }

    values::RecordingHost host;
    OnlineAccessRecord online = host.Online();
    FillRecord fill = host.Fill();
    ParameterRecord record = Record(kPoint, bytes, 12, 2);
    std::int32_t result = 0;
};

TEST_F(ThrowingHostTest, AGetterThatThrowsEndsTheReading) {
    const std::size_t failures =
        ThrowAtEveryCall([&] { result = slots::ReadStdParameterOnline(&record, &online, nullptr); },
                         [&](std::size_t failing) {
                             EXPECT_EQ(result, -1);
                             EXPECT_EQ(host.calls.size(), failing);
                             ExpectUnchanged();
                         });
    EXPECT_EQ(failures, kPointLeaves);
    EXPECT_EQ(result, 1);
    slots::FreeStdParameter(&record);
}

TEST_F(ThrowingHostTest, ASetterThatThrowsEndsTheWriting) {
    const auto expectEnd = [&](auto slot) {
        const std::size_t failures = ThrowAtEveryCall([&] { result = slot(&record, &online); },
                                                      [&](std::size_t failing) {
                                                          EXPECT_EQ(result, 0);
                                                          EXPECT_EQ(host.calls.size(), failing);
                                                          ExpectUnchanged();
                                                      });
        EXPECT_EQ(failures, kPointLeaves);
        EXPECT_EQ(result, 1);
    };
    expectEnd([](ParameterRecord* given, OnlineAccessRecord* access) {
        return slots::WriteStdParameterOnline(given, access, nullptr);
    });
    expectEnd(slots::ConvertStdParameter);
}

TEST_F(ThrowingHostTest, AFillingGoesOnBehindALeafThatThrows) {
    const auto expectFailure = [&](auto slot) {
        const std::size_t failures =
            ThrowAtEveryCall([&] { result = slot(&record, &fill); },
                             [&](std::size_t) {
                                 EXPECT_EQ(result, 0);
                                 EXPECT_EQ(host.calls.size(), kPointLeaves);
                                 ExpectUnchanged();
                             });
        EXPECT_EQ(failures, kPointLeaves);
        EXPECT_EQ(result, 1);
    };
    expectFailure(slots::FillStdParameterValueInPlace);
    expectFailure(slots::FillStdParameterValue);
    slots::FreeStdParameter(&record);
}

TEST_F(ThrowingHostTest, EveryKindOfFunctionMayThrow) {
    host.onCall = [] { throw 7; };
    for (const std::int32_t area : {kMode, kWord, kText, kTime, kAll}) {
        std::uint8_t value[19] = {};
        ParameterRecord single = Record(area, value, sizeof value);
        host.calls.clear();
        EXPECT_EQ(slots::ReadStdParameterOnline(&single, &online, nullptr), -1) << area;
        EXPECT_EQ(slots::WriteStdParameterOnline(&single, &online, nullptr), 0) << area;
        EXPECT_EQ(slots::ConvertStdParameter(&single, &online), 0) << area;
        EXPECT_EQ(host.calls.size(), 3U) << area;
        EXPECT_EQ(slots::FillStdParameterValueInPlace(&single, &fill), 0) << area;
        EXPECT_EQ(single.bytes, value);
    }
}

}  // namespace
}  // namespace orvell::host
