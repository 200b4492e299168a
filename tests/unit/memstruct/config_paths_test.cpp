#include "memstruct/config_paths.h"

#include <gtest/gtest.h>

namespace orvell::test {
namespace {

using memstruct::DefaultStructFile;
using memstruct::FileNamePart;
using memstruct::JoinPath;
using memstruct::ProjectStructFile;

TEST(ConfigPathsTest, TheProjectsFileReplacesTheExtension) {
    EXPECT_EQ(ProjectStructFile("C:\\Proj\\Plant.prj"), "C:\\PROJ\\PLANT.STDMEMXML");
    EXPECT_EQ(ProjectStructFile("C:\\Proj.old\\Plant"), "C:\\PROJ.OLD\\PLANT.STDMEMXML");
    EXPECT_EQ(ProjectStructFile("C:Plant.a.b"), "C:PLANT.A.STDMEMXML");
    EXPECT_EQ(ProjectStructFile("C:Plant"), "C:PLANT.STDMEMXML");
    EXPECT_EQ(ProjectStructFile("a.b:c"), "A.B:C.STDMEMXML");
    EXPECT_EQ(ProjectStructFile("a.b/c"), "A.STDMEMXML");  // a slash separates nothing
    EXPECT_EQ(ProjectStructFile("plant."), "PLANT.STDMEMXML");
    EXPECT_EQ(ProjectStructFile("plant.."), "PLANT..STDMEMXML");
    EXPECT_EQ(ProjectStructFile("C:\\dir\\"), "C:\\DIR\\.STDMEMXML");
}

TEST(ConfigPathsTest, ADotInFrontIsNoExtension) {
    EXPECT_EQ(ProjectStructFile(".prj"), ".PRJ.STDMEMXML");
    EXPECT_EQ(ProjectStructFile("."), "..STDMEMXML");
    EXPECT_EQ(ProjectStructFile("a"), "A.STDMEMXML");
    EXPECT_EQ(ProjectStructFile("a.b"), "A.STDMEMXML");
    EXPECT_EQ(ProjectStructFile("C:\\.prj"), "C:\\.STDMEMXML");
}

TEST(ConfigPathsTest, NoPathGivesNoPath) {
    EXPECT_EQ(ProjectStructFile(""), "");
    EXPECT_EQ(DefaultStructFile(""), "");
}

TEST(ConfigPathsTest, UpperCaseFollowsTheCodePage) {
    EXPECT_EQ(ProjectStructFile("C:\\stra\xDF"
                                "e\\\xE4\xF6\xFC.prj"),
              "C:\\STRA\xDF"
              "E\\\xC4\xD6\xDC.STDMEMXML");
}

TEST(ConfigPathsTest, TheDefaultFileLiesBesideTheModule) {
    EXPECT_EQ(DefaultStructFile("D:\\Bin\\Tool.dll"), "D:\\BIN\\TOOL.XML");
    EXPECT_EQ(DefaultStructFile("D:\\Bin.x\\Tool"), "D:\\BIN.X\\TOOL.XML");
}

TEST(ConfigPathsTest, TheFileNameFollowsTheLastSeparator) {
    EXPECT_EQ(FileNamePart("C:\\Proj\\Plant.prj"), "PLANT.PRJ");
    EXPECT_EQ(FileNamePart("C:Plant.prj"), "PLANT.PRJ");
    EXPECT_EQ(FileNamePart("plant"), "PLANT");
    EXPECT_EQ(FileNamePart("C:\\Proj\\"), "");
    EXPECT_EQ(FileNamePart("a/b"), "A/B");
}

TEST(ConfigPathsTest, JoinsWithOneBackslash) {
    EXPECT_EQ(JoinPath("C:\\Out", "f.x"), "C:\\OUT\\F.X");
    EXPECT_EQ(JoinPath("C:\\Out\\", "f.x"), "C:\\OUT\\F.X");
    EXPECT_EQ(JoinPath("C:\\Out\\\\", "f.x"), "C:\\OUT\\\\F.X");
    EXPECT_EQ(JoinPath("", "f.x"), "\\F.X");
    EXPECT_EQ(JoinPath("\\", "f.x"), "\\F.X");
    EXPECT_EQ(JoinPath("C:", "f.x"), "C:\\F.X");
}

TEST(ConfigPathsTest, JoiningClimbsLevels) {
    EXPECT_EQ(JoinPath("C:\\a\\b", "..\\f.x"), "C:\\A\\F.X");
    EXPECT_EQ(JoinPath("C:\\a\\b\\", "..\\..\\f.x"), "C:\\F.X");
    EXPECT_EQ(JoinPath("C:\\a", "..\\..\\..\\f.x"), "C:\\F.X");
    EXPECT_EQ(JoinPath("C:\\a", "b\\..\\f.x"), "C:\\A\\B\\..\\F.X");
    EXPECT_EQ(JoinPath("C:\\a", "..x"), "C:\\A\\..X");
}

}  // namespace
}  // namespace orvell::test
