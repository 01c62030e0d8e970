#include "platform/Paths.h"

#include <gtest/gtest.h>

namespace ornivo {
namespace {

namespace fs = std::filesystem;

TEST(Paths, TheLastComponentIsTheNameWithNothingBeforeIt) {
    EXPECT_EQ(lastPathComponent("/a/IMG_1.jpg"), "IMG_1.jpg");
    EXPECT_EQ(lastPathComponent("IMG_1.jpg"), "IMG_1.jpg");
    EXPECT_EQ(lastPathComponent("/a/b/"), "b");
    EXPECT_EQ(lastPathComponent("/a/b//"), "b");
    EXPECT_EQ(lastPathComponent("/"), "/");
    EXPECT_EQ(lastPathComponent("//"), "/");
    EXPECT_EQ(lastPathComponent(""), "");
    EXPECT_EQ(lastPathComponent("/a/M\xF6we.jpg"), "M\xF6we.jpg");
}

TEST(Paths, TheExtensionFollowsTheLastDot) {
    EXPECT_EQ(pathExtension("IMG_1.CR2.xmp"), "xmp");
    EXPECT_EQ(pathExtension("IMG_1.CR2"), "CR2");
    EXPECT_EQ(pathExtension("IMG_1"), "");
    EXPECT_EQ(pathExtension("IMG_1."), "");
    EXPECT_EQ(pathExtension(".jpg"), "jpg");
    EXPECT_EQ(pathExtension(""), "");
    EXPECT_EQ(pathExtension("."), "");
    EXPECT_EQ(pathExtension(".."), "");
}

TEST(Paths, OnlyTheLastExtensionIsRemoved) {
    EXPECT_EQ(deletingPathExtension("a.b.jpg"), "a.b");
    EXPECT_EQ(deletingPathExtension("IMG_1"), "IMG_1");
    EXPECT_EQ(deletingPathExtension("IMG_1."), "IMG_1.");
    EXPECT_EQ(deletingPathExtension(".."), "..");
    EXPECT_EQ(deletingPathExtension(""), "");
}

TEST(Paths, ANameThatIsADotAndAnExtensionHasAnEmptyStem) {
    EXPECT_EQ(deletingPathExtension(".jpg"), "");
}

TEST(Paths, TheExtensionOfTablesIsInLowerCase) {
    EXPECT_EQ(lowercasedExtension("/a.d/IMG_1.JPG"), "jpg");
    EXPECT_EQ(lowercasedExtension("/a.d/IMG_1"), "");
    EXPECT_EQ(lowercasedExtension("/x/Old.LRLIBRARY/"), "lrlibrary");
}

TEST(Paths, AStandardizedPathIsAbsoluteAndPlain) {
    EXPECT_EQ(standardized("/a/./b/../c/"), "/a/c");
    EXPECT_EQ(standardized("/a//b"), "/a/b");
    EXPECT_EQ(standardized("/"), "/");
    EXPECT_EQ(standardized("/.."), "/");
    EXPECT_EQ(standardized("a/b"), fs::current_path() / "a/b");
    EXPECT_EQ(standardized("a/.."), fs::current_path());
    EXPECT_EQ(standardized("."), fs::current_path());
    EXPECT_EQ(standardized(""), fs::current_path());
}

}  // namespace
}  // namespace ornivo
