#include <gtest/gtest.h>

#include "support/PrivateTrash.h"
#include "support/RunScene.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;
using Operation = FailingFiles::Operation;
using Names = std::set<std::string>;
using Texts = std::vector<std::string>;

bool matches(const std::string& label, const BirdSpecies& target) {
    return SortEngine::matches(guesses({{label, 0.9}}), target);
}

TEST(FindMatches, HyphensUnderscoresCaseAccentsAndBlanksMakeNoDifference) {
    for (const char* typed : {"bald-eagle", "bald_eagle", "Bald  Eagle", " BALD EAGLE ",
                              "Bäld Éagle", "bald\teagle", "Bald - Eagle"}) {
        EXPECT_TRUE(matches("BALD EAGLE", {typed, ""})) << typed;
        EXPECT_TRUE(matches(baldEagle.label, {typed, ""})) << typed;
    }
    EXPECT_FALSE(matches("BALD EAGLE", {"baldeagle", ""}));
    EXPECT_FALSE(matches("BALD EAGLE", {"Eagle", ""}));
}

TEST(FindMatches, EitherNameIsComparedWithTheDisplayNameAndTheLabel) {
    EXPECT_TRUE(matches(baldEagle.label, {"Bald Eagle", ""}));
    EXPECT_TRUE(matches(baldEagle.label, {"Haliaeetus leucocephalus", ""}));
    EXPECT_TRUE(matches(baldEagle.label, {"", "Bald Eagle"}));
    EXPECT_TRUE(matches(baldEagle.label, {"", "haliaeetus leucocephalus"}));
    EXPECT_TRUE(matches(baldEagle.label, {"Another", "Haliaeetus leucocephalus"}));
    EXPECT_FALSE(matches(baldEagle.label, {"Another", "Erithacus rubecula"}));
}

TEST(FindMatches, AnEmptyTargetMatchesNothing) {
    EXPECT_FALSE(matches(baldEagle.label, {"", ""}));
    EXPECT_FALSE(matches("", {"", ""}));
    EXPECT_FALSE(matches(" ", {" - ", "_"}));
}

TEST(FindMatches, OnlyTheBestGuessCounts) {
    const auto species = guesses({{robin.label, 0.6}, {baldEagle.label, 0.3}});
    EXPECT_FALSE(SortEngine::matches(species, {"Bald Eagle", ""}));
}

class FindMode : public ::testing::Test {
protected:
    FindMode() {
        scene_.input.mode = AppMode::find;
        scene_.input.targetSpecies = {{"Bald Eagle", ""}};
    }

    Texts place(const fs::path& file, const std::vector<fs::path>& partners = {},
                const BirdSpecies& species = {"Eagle I saw", ""}) {
        return scene_.engine().placeFind(file, partners, scene_.input.destination, species,
                                         scene_.input.options, metadata_);
    }

    RunScene scene_;
    PhotoMetadata metadata_;
};

TEST_F(FindMode, AMatchLiesInAFolderNamedAfterWhatWasSearchedFor) {
    scene_.picture("a.jpg", baldEagle, 0.9);
    scene_.picture("b.jpg", robin, 0.9);
    scene_.input.targetSpecies = {{"bald-EAGLE", "whatever"}};
    const auto report = scene_.run();
    EXPECT_EQ(scene_.filed(), Names{"bald-EAGLE/a.jpg"});
    EXPECT_EQ(report.find().matched, 1);
    EXPECT_EQ(report.find().scanned, 2);
    EXPECT_EQ(report.find().lowConfidence, 0);
    EXPECT_EQ(report.find().processed, 2);
    EXPECT_EQ(report.find().total, 2);
}

TEST_F(FindMode, ATargetWithoutACommonNameIsFiledUnderItsScientificOne) {
    scene_.picture("a.jpg", baldEagle, 0.9);
    scene_.input.targetSpecies = {{"", "haliaeetus leucocephalus"}};
    scene_.run();
    EXPECT_EQ(scene_.filed(), Names{"haliaeetus leucocephalus/a.jpg"});
}

TEST_F(FindMode, OfTwoTargetsThatMatchTheFirstDecidesAndTheShotIsCopiedOnce) {
    scene_.picture("a.jpg", baldEagle, 0.9);
    scene_.input.targetSpecies = {{"Robin", ""}, {"", "Bald Eagle"}, {"Bald Eagle", ""}};
    EXPECT_EQ(scene_.run().find().matched, 1);
    EXPECT_EQ(scene_.filed(), Names{"Bald Eagle/a.jpg"});
}

TEST_F(FindMode, AShotAtTheGateMayMatchAndOneUnderItNeverDoes) {
    scene_.picture("at.jpg", baldEagle, 0.5375);
    scene_.picture("under.jpg", baldEagle, 0.5374);
    const auto report = scene_.run();
    EXPECT_EQ(scene_.filed(), Names{"Bald Eagle/at.jpg"});
    EXPECT_EQ(report.find().matched, 1);
    EXPECT_EQ(report.find().lowConfidence, 1);
    EXPECT_EQ(report.find().scanned, 2);
    EXPECT_EQ(report.lines("prediction"),
              (Texts{"prediction Haliaeetus_leucocephalus 0.5375",
                     "prediction Haliaeetus_leucocephalus 0.5374 (Low confidence — review "
                     "_Uncertain/)"}));
}

TEST_F(FindMode, FilesKeepTheirNamesWhateverTheOptionsAndTakeCollisionSuffixes) {
    scene_.input.options.rename = true;
    scene_.picture("a.jpg", baldEagle, 0.9);
    writeFile(scene_.input.destination / "Bald Eagle/a.jpg", "earlier");
    scene_.run();
    EXPECT_EQ(scene_.filed(), (Names{"Bald Eagle/a.jpg", "Bald Eagle/a_1.jpg"}));
    EXPECT_EQ(scene_.contents("Bald Eagle/a.jpg"), "earlier");
}

TEST_F(FindMode, WithDeleteAMatchGoesToTheTrashAndEveryOtherShotStays) {
    scene_.input.options.mode = CopyMode::trashOriginal;
    const auto match = scene_.picture("FindMode-a.jpg", baldEagle, 0.9);
    const auto other = scene_.picture("FindMode-b.jpg", robin, 0.9);
    const auto weak = scene_.picture("FindMode-c.jpg", baldEagle, 0.1);
    const std::string bytes = readFile(match);
    EXPECT_EQ(scene_.run().find().warnings, Texts());
    EXPECT_FALSE(fs::exists(match));
    EXPECT_EQ(readFile(privateTrash() / "FindMode-a.jpg"), bytes);
    EXPECT_EQ(scene_.contents("Bald Eagle/FindMode-a.jpg"), bytes);
    EXPECT_TRUE(fs::exists(other));
    EXPECT_TRUE(fs::exists(weak));
}

TEST_F(FindMode, DaySubfoldersAreHonoured) {
    scene_.input.options.dateSubfolders = true;
    scene_.picture("a.jpg", baldEagle, 0.9, {.dateTimeOriginal = "2024:05:17 06:07:08"});
    scene_.run();
    EXPECT_EQ(scene_.filed(), Names{"Bald Eagle/2024-05-17/a.jpg"});
}

TEST_F(FindMode, PartnersAndCompanionsComeAlong) {
    scene_.picture("a.jpg", baldEagle, 0.9);
    scene_.raw("a.dng", robin, 0.3);
    scene_.sidecar("a.dng.xmp");
    const auto report = scene_.run();
    EXPECT_EQ(scene_.filed(),
              (Names{"Bald Eagle/a.jpg", "Bald Eagle/a.dng", "Bald Eagle/a.dng.xmp"}));
    EXPECT_EQ(report.find().matched, 1);
    EXPECT_EQ(report.find().scanned, 1);
    EXPECT_EQ(report.find().processed, 2);
}

TEST_F(FindMode, APartnerThatCanNotBeCopiedIsAWarningWithoutTheErrorsWords) {
    scene_.files().fail(Operation::copy, named("a.cr2"), noSpaceLeft());
    EXPECT_EQ(place(scene_.sidecar("a.jpg"), {scene_.sidecar("a.cr2"), scene_.sidecar("a.mov")}),
              Texts{"Matched a.jpg but could not file a.cr2"});
    EXPECT_EQ(scene_.filed(), (Names{"Eagle I saw/a.jpg", "Eagle I saw/a.mov"}));
}

TEST_F(FindMode, ANameThatWasTypedCanNotLeadOutOfTheDestination) {
    place(scene_.sidecar("a.jpg"), {}, {"../elsewhere", ""});
    EXPECT_EQ(scene_.filed(), Names{".._elsewhere/a.jpg"});
}

TEST_F(FindMode, TheLastPlaceOfASortRunIsNotTouched) {
    place(scene_.sidecar("a.jpg"));
    EXPECT_EQ(scene_.engine().lastPlacedURL(), std::nullopt);
}

TEST_F(FindMode, WithoutTargetsEverythingIsClassifiedAndNothingCopied) {
    scene_.input.targetSpecies.clear();
    scene_.picture("a.jpg", baldEagle, 0.9);
    scene_.picture("b.jpg", robin, 0.2);
    const auto report = scene_.run();
    EXPECT_EQ(report.find().scanned, 2);
    EXPECT_EQ(report.find().matched, 0);
    EXPECT_EQ(scene_.filed(), Names());
}

TEST_F(FindMode, AMatchThatCanNotBeFiledIsAnErrorAndWasScanned) {
    scene_.picture("a.jpg", baldEagle, 0.9);
    scene_.junk("b.jpg");
    scene_.files().fail(Operation::copy, named("a.jpg"), notPermitted());
    const auto report = scene_.run();
    EXPECT_EQ(report.find().errors, 2);
    EXPECT_EQ(report.find().scanned, 1);
    EXPECT_EQ(report.find().matched, 0);
    EXPECT_EQ(report.lines(),
              (Texts{"progress 0/2 a.jpg {} 0 uncertain", "prediction Haliaeetus_leucocephalus 0.9",
                     "failure It couldn't be done: Permission denied",
                     "progress 1/2 b.jpg {} 0 uncertain", "failure The file couldn't be read.",
                     "finished completed, last 1"}));
}

TEST_F(FindMode, AFullDiskEndsTheRunAndTheShotWasNotScanned) {
    scene_.picture("a.jpg", baldEagle, 0.9);
    scene_.picture("b.jpg", baldEagle, 0.9);
    scene_.files().fail(Operation::copy, named("b.jpg"), noSpaceLeft());
    const auto report = scene_.run();
    EXPECT_EQ(report.find().scanned, 1);
    EXPECT_EQ(report.find().errors, 0);
    EXPECT_EQ(report.find().stopReason, StopReason::diskFull());
    EXPECT_TRUE(report.find().stopped);
    EXPECT_EQ(report.lines("disk full"), Texts{"disk full at 1"});
}

TEST_F(FindMode, UncertainShotsAndTheirRowsAreLeftAsTheyWere) {
    scene_.input.mode = AppMode::sort;
    scene_.picture("a.jpg", robin, 0.2);
    scene_.run();
    const std::string csv = scene_.contents("_Uncertain/review.csv");
    writeFile(scene_.input.destination / "_Uncertain/review.html", "the page as it was");

    scene_.input.mode = AppMode::find;
    scene_.input.startIndex = 1;
    scene_.input.options.burstInheritance = BurstInheritance::confirmedAndCorrected;
    scene_.picture("b.jpg", robin, 0.2);
    scene_.run();
    EXPECT_EQ(scene_.filed(),
              (Names{"_Uncertain/a.jpg", "_Uncertain/review.csv", "_Uncertain/review.html"}));
    EXPECT_EQ(scene_.contents("_Uncertain/review.csv"), csv);
    EXPECT_EQ(scene_.contents("_Uncertain/review.html"), "the page as it was");
    EXPECT_EQ(scene_.engine().reviewRows().size(), 1U);
}

TEST_F(FindMode, ASearchThatGoesOnLeavesNoPageOfAnotherRunInItsDestination) {
    scene_.input.mode = AppMode::sort;
    scene_.picture("a.jpg", robin, 0.2);
    scene_.run();

    scene_.input.mode = AppMode::find;
    scene_.input.startIndex = 1;
    scene_.input.destination /= "found";
    scene_.run();
    EXPECT_EQ(scene_.filed(), Names());
}

}  // namespace
}  // namespace ornivo
