#include "media/Shots.h"

#include <gmock/gmock.h>

namespace ornivo {
namespace {

using Shots::Grouping;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Shots, RawExtensionsAreTheseEight) {
    EXPECT_THAT(Shots::rawExtensions(),
                ElementsAre("arw", "cr2", "cr3", "dng", "nef", "orf", "raw", "rw2"));
}

TEST(Shots, ARawAndAPictureAreOneShotLedByTheFirst) {
    const Grouping expected{.partners = {{0, {1}}}, .followers = {1}};
    EXPECT_EQ(Shots::group({"x/a.jpg", "x/a.cr2"}), expected);
    EXPECT_EQ(Shots::group({"x/a.cr2", "x/a.jpg"}), expected);
}

TEST(Shots, ARawAPictureAndAClipAreOneShot) {
    const auto grouping = Shots::group({"x/a.cr2", "x/a.jpg", "x/a.mov"});
    EXPECT_EQ(grouping, (Grouping{.partners = {{0, {1, 2}}}, .followers = {1, 2}}));
    EXPECT_EQ(grouping.shotCount(), 1u);
}

TEST(Shots, APictureOrARawWithAClipIsAShot) {
    EXPECT_EQ(Shots::group({"x/a.heic", "x/a.mov"}).shotCount(), 1u);
    EXPECT_EQ(Shots::group({"x/a.mp4", "x/a.nef"}).shotCount(), 1u);
}

TEST(Shots, EveryRawExtensionCountsAsOne) {
    for (const auto& extension : Shots::rawExtensions()) {
        EXPECT_EQ(Shots::group({"x/a." + extension, "x/a.jpg"}).shotCount(), 1u) << extension;
        EXPECT_EQ(Shots::group({"x/a." + extension, "x/a.cr2"}).shotCount(), 0u) << extension;
    }
}

TEST(Shots, FilesOfOneKindStayApart) {
    EXPECT_EQ(Shots::group({"x/a.jpg", "x/a.jpeg"}), Grouping{});
    EXPECT_EQ(Shots::group({"x/a.cr2", "x/a.dng"}), Grouping{});
    EXPECT_EQ(Shots::group({"x/a.mov", "x/a.mp4"}), Grouping{});
}

TEST(Shots, FilesOfOneKindAreInTheShotWhenAnotherIs) {
    EXPECT_EQ(Shots::group({"x/a.jpg", "x/a.jpeg", "x/a.cr2"}),
              (Grouping{.partners = {{0, {1, 2}}}, .followers = {1, 2}}));
}

TEST(Shots, FilesOfDifferentFoldersAreNoShot) {
    EXPECT_EQ(Shots::group({"x/a.jpg", "y/a.cr2"}), Grouping{});
    EXPECT_EQ(Shots::group({"x/a.jpg", "X/a.cr2"}), Grouping{}) << "a folder keeps its case";
    EXPECT_EQ(Shots::group({"x/a.jpg", "x/y/a.cr2"}), Grouping{});
}

TEST(Shots, OneFolderIsOneHoweverItIsWritten) {
    EXPECT_EQ(Shots::group({"x/a.jpg", "y/../x/a.cr2", "./x//a.mov"}).followers,
              (std::set<std::size_t>{1, 2}));
}

TEST(Shots, TheCaseOfTheNameDoesNotCount) {
    EXPECT_EQ(Shots::group({"x/A.JPG", "x/a.cr2"}).shotCount(), 1u);
    EXPECT_EQ(Shots::group({"x/ÉTÉ.CR2", "x/été.jpg"}).shotCount(), 1u);
    EXPECT_EQ(Shots::group({"x/e\u0301.CR2", "x/\u00E9.jpg"}).shotCount(), 1u);
}

TEST(Shots, NamesThatAreNoUTF8MeetOnlyThemselves) {
    EXPECT_EQ(Shots::group({"x/M\xF6we.jpg", "x/M\xF6we.cr2"}).shotCount(), 1u);
    EXPECT_EQ(Shots::group({"x/M\xF6we.jpg", "x/M\xFCwe.cr2"}).shotCount(), 0u);
}

TEST(Shots, OneFileOrNoneIsNoShot) {
    EXPECT_EQ(Shots::group({}), Grouping{});
    EXPECT_EQ(Shots::group({"x/a.jpg"}), Grouping{});
}

TEST(Shots, OnlyTheLastExtensionIsRemoved) {
    EXPECT_EQ(Shots::group({"x/a.b.jpg", "x/a.b.cr2"}).shotCount(), 1u);
    EXPECT_EQ(Shots::group({"x/a.jpg", "x/a.b.cr2"}).shotCount(), 0u);
}

TEST(Shots, FilesOfAShotNeedNotStandTogether) {
    EXPECT_EQ(Shots::group({"x/b.jpg", "x/a.jpg", "x/b.cr2", "x/a.mov", "x/a.cr2", "x/c.jpg"}),
              (Grouping{.partners = {{0, {2}}, {1, {3, 4}}}, .followers = {2, 3, 4}}));
}

TEST(Shots, SiblingsShareTheStemWhateverTheirKindAndCase) {
    EXPECT_THAT(Shots::siblingNames("a.jpg", {"a.jpg", "A.CR2", "a.xmp", "b.jpg", "a.jpeg"}),
                ElementsAre("A.CR2", "a.jpeg"));
}

TEST(Shots, APhotographIsNotItsOwnSiblingInAnyCase) {
    EXPECT_THAT(Shots::siblingNames("a.jpg", {"A.JPG", "a.jpg", "a.mov"}), ElementsAre("a.mov"));
}

TEST(Shots, SiblingsComeInPlainTextOrder) {
    EXPECT_THAT(Shots::siblingNames("a.jpg", {"a.png", "a.CR2", "A.mov"}),
                ElementsAre("A.mov", "a.CR2", "a.png"));
}

TEST(Shots, APhotographWithoutAStemHasNoSiblings) {
    EXPECT_THAT(Shots::siblingNames(".jpg", {".jpg", ".cr2", "a.jpg"}), IsEmpty());
    EXPECT_THAT(Shots::siblingNames("", {"a.jpg"}), IsEmpty());
}

TEST(Shots, SiblingsShareTheWholeStem) {
    EXPECT_THAT(Shots::siblingNames("a.b.jpg", {"a.jpg", "a.b.cr2", "a.b.c.jpg"}),
                ElementsAre("a.b.cr2"));
}

}  // namespace
}  // namespace ornivo
