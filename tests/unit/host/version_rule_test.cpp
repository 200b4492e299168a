#include "host/version_rule.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/fake_libraries.h"

namespace orvell::host {
namespace {

TEST(RequiredDllVersion, IsWrittenAsHundredths) {
    EXPECT_DOUBLE_EQ(kRequiredZelkorTool.AsNumber(), 3.0308);
    EXPECT_DOUBLE_EQ(kRequiredXmlAccess.AsNumber(), 2.01);
    EXPECT_DOUBLE_EQ(kRequiredLanguageLibrary.AsNumber(), 2.0105);
    EXPECT_DOUBLE_EQ((RequiredDllVersion{1, 2, 3, 4}).AsNumber(), 1.020304);
}

TEST(RequiredDllVersion, AcceptsEqualAndLaterVersions) {
    EXPECT_TRUE(kRequiredZelkorTool.IsMetBy(3.0308));
    EXPECT_TRUE(kRequiredZelkorTool.IsMetBy(3.0308 - 0.00000009)) << "rounding is forgiven";
    EXPECT_TRUE(kRequiredZelkorTool.IsMetBy(3.04));
    EXPECT_TRUE(kRequiredZelkorTool.IsMetBy(4.0));
    EXPECT_TRUE(kRequiredZelkorTool.IsMetBy(std::numeric_limits<double>::infinity()));
}

TEST(RequiredDllVersion, RefusesOlderVersions) {
    EXPECT_FALSE(kRequiredZelkorTool.IsMetBy(3.0307));
    EXPECT_FALSE(kRequiredZelkorTool.IsMetBy(3.0308 - 0.0000002));
    EXPECT_FALSE(kRequiredZelkorTool.IsMetBy(0.0));
    EXPECT_FALSE(kRequiredZelkorTool.IsMetBy(-3.04));
    EXPECT_FALSE(kRequiredZelkorTool.IsMetBy(std::numeric_limits<double>::quiet_NaN()));
}

double ReportedVersion() {
    return 2.01;
}

TEST(RequiredDllVersion, AsksTheLibrary) {
    test::FakeLoader loader;
    loader.libraries["with"]["GetDLLVersion"] = test::Address(ReportedVersion);
    loader.libraries["without"] = {};
    EXPECT_TRUE(kRequiredXmlAccess.IsMetBy(*loader.Load("with")));
    EXPECT_FALSE(kRequiredLanguageLibrary.IsMetBy(*loader.Load("with")));
    EXPECT_FALSE(kRequiredXmlAccess.IsMetBy(*loader.Load("without")));
}

}  // namespace
}  // namespace orvell::host
