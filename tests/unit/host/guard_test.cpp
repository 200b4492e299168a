#include "host/guard.h"

#include <gtest/gtest.h>

#include <new>

namespace orvell::host {
namespace {

TEST(Guarded, PassesTheResultOn) {
    EXPECT_EQ(Guarded<int>(0, [] { return 5; }), 5);
    bool ran = false;
    Guarded([&ran] { ran = true; });
    EXPECT_TRUE(ran);
}

TEST(Guarded, TurnsEveryExceptionIntoTheFailureValue) {
    EXPECT_EQ(Guarded<int>(-1, []() -> int { throw std::bad_alloc(); }), -1);
    EXPECT_EQ(Guarded<int>(-1, []() -> int { throw 7; }), -1);
    Guarded([] { throw std::bad_alloc(); });
}

}  // namespace
}  // namespace orvell::host
