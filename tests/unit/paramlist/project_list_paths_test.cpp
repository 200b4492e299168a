#include "paramlist/project_list_paths.h"

#include <gtest/gtest.h>

namespace orvell::paramlist {
namespace {

TEST(FileExtension, IsWhatFollowsTheLastDotOfTheFileName) {
    EXPECT_EQ(FileExtension("C:\\DIR\\LIST.CSV"), ".CSV");
    EXPECT_EQ(FileExtension("LIST.OLD.csv"), ".csv");
    EXPECT_EQ(FileExtension("LIST."), ".");
    EXPECT_EQ(FileExtension(".csv"), ".csv");
    EXPECT_EQ(FileExtension("C:\\PROJ.OLD\\LIST"), "");
    EXPECT_EQ(FileExtension("A.B:LIST"), "");
    EXPECT_EQ(FileExtension("dir.old/LIST"), ".old/LIST") << "a slash separates nothing";
    EXPECT_EQ(FileExtension("LIST"), "");
    EXPECT_EQ(FileExtension(""), "");
}

TEST(ListFilePath, TakesTheProjectsPlaceInUpperCase) {
    EXPECT_EQ(ListFilePath("C:\\Projects\\Plant.prj"), "C:\\PROJECTS\\PLANT.SIL");
    EXPECT_EQ(ListFilePath("C:\\Proj.old\\Plant"), "C:\\PROJ.OLD\\PLANT.SIL");
    EXPECT_EQ(ListFilePath("plant"), "PLANT.SIL");
    EXPECT_EQ(ListFilePath("plant."), "PLANT.SIL");
    EXPECT_EQ(ListFilePath("plant.a.b"), "PLANT.A.SIL");
    EXPECT_EQ(ListFilePath(".prj"), ".SIL");
    EXPECT_EQ(ListFilePath("k\xE4se.prj"), "K\xC4SE.SIL");
    EXPECT_EQ(ListFilePath(""), "");
}

TEST(IsCsvPath, LooksAtTheExtensionOnly) {
    for (const char* path : {"a.csv", "a.CSV", "C:\\x.y\\a.Csv", ".csv"}) {
        EXPECT_TRUE(IsCsvPath(path)) << path;
    }
    for (const char* path : {"a.sil", "csv", "a.csvx", "a.cs", "a.csv\\b", "a.csv.txt", "a.", ""}) {
        EXPECT_FALSE(IsCsvPath(path)) << path;
    }
}

}  // namespace
}  // namespace orvell::paramlist
