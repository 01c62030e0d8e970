#include "media/Sidecars.h"

#include <gmock/gmock.h>

namespace ornivo {
namespace {

using Sidecars::Companion;
using Sidecars::CompanionName;
using Sidecars::companionNames;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Sidecars, CompanionExtensionsAreTheseSeven) {
    EXPECT_THAT(Sidecars::extensions(),
                ElementsAre("aae", "cos", "dop", "nksc", "on1", "pp3", "xmp"));
}

TEST(Sidecars, CompanionsAreNamedAfterTheWholeNameOrTheStem) {
    EXPECT_THAT(companionNames("IMG_1.CR2", {"IMG_1.CR2", "IMG_1.JPG", "img_1.XMP", "IMG_1.CR2.xmp",
                                             "IMG_1.dop", "IMG_10.xmp"}),
                ElementsAre(CompanionName{"IMG_1.CR2.xmp", true}, CompanionName{"IMG_1.dop", false},
                            CompanionName{"img_1.XMP", false}));
}

TEST(Sidecars, CaseIsIgnoredOnBothSides) {
    EXPECT_THAT(companionNames("IMG_1.cr2", {"IMG_1.CR2.XMP"}),
                ElementsAre(CompanionName{"IMG_1.CR2.XMP", true}));
    EXPECT_THAT(companionNames("\u00C9.jpg", {"e\u0301.xmp"}),
                ElementsAre(CompanionName{"e\u0301.xmp", false}));
}

TEST(Sidecars, EveryCompanionExtensionCounts) {
    for (const auto& extension : Sidecars::extensions()) {
        const std::string name = "IMG_1." + extension;
        EXPECT_THAT(companionNames("IMG_1.jpg", {name}), ElementsAre(CompanionName{name, false}));
    }
}

TEST(Sidecars, APhotographWithoutAStemHasNoCompanions) {
    EXPECT_THAT(companionNames(".jpg", {".xmp", ".jpg.xmp"}), IsEmpty());
}

TEST(Sidecars, AnEmptyNameHasNoCompanions) {
    EXPECT_THAT(companionNames("", {".xmp", "a.xmp"}), IsEmpty());
}

TEST(Sidecars, OtherExtensionsAreNoCompanions) {
    EXPECT_THAT(companionNames("IMG_1.jpg", {"IMG_1.txt", "IMG_1.thm", "notes.txt", "IMG_1"}),
                IsEmpty());
}

TEST(Sidecars, APictureAndItsRawBothClaimTheCompanionOfTheirStem) {
    const std::vector<std::string> names{"IMG_1.CR2", "IMG_1.jpg", "IMG_1.xmp"};
    EXPECT_THAT(companionNames("IMG_1.jpg", names), ElementsAre(CompanionName{"IMG_1.xmp", false}));
    EXPECT_THAT(companionNames("IMG_1.CR2", names), ElementsAre(CompanionName{"IMG_1.xmp", false}));
}

TEST(Sidecars, APhotographWithoutAnExtensionIsMatchedByItsWholeName) {
    EXPECT_THAT(companionNames("robin", {"robin.xmp"}),
                ElementsAre(CompanionName{"robin.xmp", true}));
}

TEST(Sidecars, NamesThatAreNoUTF8MeetOnlyThemselves) {
    EXPECT_THAT(companionNames("M\xF6we.jpg", {"M\xF6we.xmp", "M\xFCwe.xmp"}),
                ElementsAre(CompanionName{"M\xF6we.xmp", false}));
}

TEST(Sidecars, AListingAnswersForEveryPhotographOfTheFolder) {
    const Sidecars::Listing listing({"b.xmp", "a.xmp", "a.jpg.dop", "a.jpg"});
    EXPECT_THAT(listing.companionNames("a.jpg"),
                ElementsAre(CompanionName{"a.jpg.dop", true}, CompanionName{"a.xmp", false}));
    EXPECT_THAT(listing.companionNames("b.cr2"), ElementsAre(CompanionName{"b.xmp", false}));
    EXPECT_THAT(listing.companionNames("c.jpg"), IsEmpty());
}

TEST(Sidecars, ACompanionOfTheStemTakesTheNewStem) {
    const Companion companion{"/x/IMG_1.xmp", false};
    EXPECT_EQ(companion.destinationName("robin-0001.jpg"), "robin-0001.xmp");
}

TEST(Sidecars, ACompanionOfTheWholeNameTakesTheWholeNewName) {
    const Companion companion{"/x/IMG_1.CR2.xmp", true};
    EXPECT_EQ(companion.destinationName("robin-0001.jpg"), "robin-0001.jpg.xmp");
}

TEST(Sidecars, TheCompanionsExtensionKeepsItsCase) {
    EXPECT_EQ((Companion{"/x/IMG_1.XMP", false}.destinationName("robin.jpg")), "robin.XMP");
}

TEST(Sidecars, ANewNameWithoutAnExtensionIsTakenWhole) {
    EXPECT_EQ((Companion{"/x/IMG_1.xmp", false}.destinationName("robin")), "robin.xmp");
}

}  // namespace
}  // namespace ornivo
