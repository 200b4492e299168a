#include "resources/version.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

TEST(VersionTest, TheLanguageLibraryIsAsNewAsTheModuleRequires) {
    constexpr double reported = ORVELL_VERSION_NUMBER(ORVELL_LANGUAGE_VERSION);
    EXPECT_DOUBLE_EQ(reported, 2.0105);
    EXPECT_GE(reported, 2.0105 - 0.0000001);
}

TEST(VersionTest, EachPartOfAVersionWeighsAHundredthOfTheOneBefore) {
    EXPECT_DOUBLE_EQ(ORVELL_COMPUTE_VERSION(3, 3, 8, 0), 3.0308);
    EXPECT_DOUBLE_EQ(ORVELL_COMPUTE_VERSION(1, 2, 3, 4), 1.020304);
}

TEST(VersionTest, TextsAndNumbersComeFromOneMacro) {
    EXPECT_EQ(std::string_view(ORVELL_VERSION_TEXT(ORVELL_MODULE_VERSION)), "1.0.0.0");
    EXPECT_EQ(std::string_view(ORVELL_VERSION_TEXT(ORVELL_LANGUAGE_VERSION)), "2.1.5.0");
}

}  // namespace
