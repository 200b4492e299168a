#include "host/call_token_guard.h"

#include <gtest/gtest.h>

namespace orvell::host {
namespace {

TEST(CallTokenGuard, WithoutATokenEveryCallIsAdmitted) {
    CallTokenGuard guard;
    EXPECT_TRUE(guard.Admit());
    EXPECT_TRUE(guard.Admit());
}

TEST(CallTokenGuard, ATokenAdmitsOneCall) {
    CallTokenGuard guard;
    guard.SetToken(7);
    EXPECT_TRUE(guard.Admit());
    EXPECT_FALSE(guard.Admit());
    guard.SetToken(7);
    EXPECT_FALSE(guard.Admit()) << "the same token again";
    guard.SetToken(8);
    EXPECT_TRUE(guard.Admit());
    guard.SetToken(7);
    EXPECT_TRUE(guard.Admit()) << "only the last token is remembered";
}

TEST(CallTokenGuard, TokenZeroLeavesTheLastTokenRemembered) {
    CallTokenGuard guard;
    guard.SetToken(7);
    EXPECT_TRUE(guard.Admit());
    guard.SetToken(0);
    EXPECT_TRUE(guard.Admit());
    EXPECT_TRUE(guard.Admit());
    guard.SetToken(7);
    EXPECT_FALSE(guard.Admit());
}

TEST(CallTokenGuard, ATokenThatNoCallUsedIsNotRemembered) {
    CallTokenGuard guard;
    guard.SetToken(7);
    EXPECT_TRUE(guard.Admit());
    guard.SetToken(8);
    guard.SetToken(7);
    EXPECT_FALSE(guard.Admit());
}

TEST(CallTokenGuard, ResetForgetsBothTokens) {
    CallTokenGuard guard;
    guard.SetToken(7);
    EXPECT_TRUE(guard.Admit());
    guard.Reset();
    EXPECT_TRUE(guard.Admit());
    EXPECT_TRUE(guard.Admit()) << "the current token is 0 again";
    guard.SetToken(7);
    EXPECT_TRUE(guard.Admit()) << "the last one too";
}

}  // namespace
}  // namespace orvell::host
