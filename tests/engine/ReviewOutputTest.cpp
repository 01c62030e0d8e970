#include <gtest/gtest.h>

#include "support/RunScene.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;
using Operation = FailingFiles::Operation;

const std::string header = "filename,guess1,conf1,guess2,conf2,guess3,conf3\n";
const std::string csv = "_Uncertain/review.csv";
const std::string page = "_Uncertain/review.html";

bool isOnPage(const RunScene& scene, const std::string& file) {
    return scene.contents(page).find("{\"f\":\"" + file + "\"") != std::string::npos;
}

TEST(ReviewOutput, ARowHoldsTheFileAndThreeGuessesWithTheirConfidences) {
    RunScene scene;
    scene.picture("a.jpg", guesses({{robin.label, 0.5}, {grebe.label, 0.25}, {tit.label, 0.0625}}));
    scene.run();
    EXPECT_EQ(scene.contents(csv),
              header + "a.jpg,European Robin,0.5000,Clark's Grebe,0.2500,Long-tailed Tit,0.0625\n");
}

TEST(ReviewOutput, AShotWithOneCandidateEndsInFourEmptyFields) {
    RunScene scene;
    scene.picture("a.jpg", robin, 0.5);
    scene.picture("b.jpg", guesses({{robin.label, 0.5}, {grebe.label, 0.25}}));
    scene.run();
    EXPECT_EQ(scene.contents(csv), header + "a.jpg,European Robin,0.5000,,,,\n" +
                                       "b.jpg,European Robin,0.5000,Clark's Grebe,0.2500,,\n");
}

TEST(ReviewOutput, AFourthCandidateIsNotWritten) {
    RunScene scene;
    scene.engine().appendReviewRow(
        scene.input.destination, "a.jpg",
        guesses(
            {{robin.label, 0.4}, {grebe.label, 0.3}, {tit.label, 0.2}, {baldEagle.label, 0.1}}));
    EXPECT_EQ(scene.contents(csv),
              header + "a.jpg,European Robin,0.4000,Clark's Grebe,0.3000,Long-tailed Tit,0.2000\n");
}

TEST(ReviewOutput, NamesAreQuotedWhereTheyMustBe) {
    RunScene scene;
    scene.picture("robin, \"singing\".jpg", guesses({{"Odd, label", 0.5}}));
    scene.run();
    EXPECT_EQ(scene.contents(csv),
              header + "\"robin, \"\"singing\"\".jpg\",\"Odd, Label\",0.5000,,,,\n");
}

TEST(ReviewOutput, ANameThatIsNotUTF8StandsByteForByte) {
    RunScene scene;
    scene.picture("caf\xe9.jpg", robin, 0.5);
    scene.run();
    EXPECT_EQ(scene.contents(csv), header + "caf\xe9.jpg,European Robin,0.5000,,,,\n");
}

TEST(ReviewOutput, ARunWithNothingUncertainCreatesNothingAndLeavesEarlierFiles) {
    RunScene scene;
    scene.picture("a.jpg", robin, 0.9);
    scene.run();
    EXPECT_FALSE(fs::exists(scene.input.destination / "_Uncertain"));

    writeFile(scene.input.destination / csv, "earlier rows");
    writeFile(scene.input.destination / page, "an earlier page");
    scene.run();
    EXPECT_EQ(scene.contents(csv), "earlier rows");
    EXPECT_EQ(scene.contents(page), "an earlier page");
}

TEST(ReviewOutput, TwoRunsIntoOneDestinationShareTheListUnderOneHeader) {
    RunScene scene;
    scene.picture("a.jpg", robin, 0.5);
    scene.run();
    scene.input.paths.clear();
    scene.picture("b.jpg", grebe, 0.5);
    scene.run();
    EXPECT_EQ(scene.contents(csv),
              header + "a.jpg,European Robin,0.5000,,,,\n" + "b.jpg,Clark's Grebe,0.5000,,,,\n");
    EXPECT_FALSE(isOnPage(scene, "a.jpg"));
    EXPECT_TRUE(isOnPage(scene, "b.jpg"));
}

TEST(ReviewOutput, TheListNamesTheSourceAndThePageTheFileInUncertain) {
    RunScene scene;
    writeFile(scene.input.destination / "_Uncertain/a.jpg", "earlier");
    scene.picture("a.jpg", robin, 0.5);
    scene.run();
    EXPECT_EQ(scene.contents(csv), header + "a.jpg,European Robin,0.5000,,,,\n");
    EXPECT_FALSE(isOnPage(scene, "a.jpg"));
    EXPECT_TRUE(isOnPage(scene, "a_1.jpg"));
}

TEST(ReviewOutput, TheListLiesInUncertainItselfAboveDayFolders) {
    RunScene scene;
    scene.input.options.dateSubfolders = true;
    scene.picture("a.jpg", robin, 0.5, {.dateTimeOriginal = "2024:05:17 06:07:08"});
    scene.run();
    EXPECT_EQ(scene.filed(), (std::set<std::string>{csv, page, "_Uncertain/2024-05-17/a.jpg"}));
}

TEST(ReviewOutput, ARowIsWrittenStraightToTheFile) {
    RunScene scene;
    scene.engine().appendReviewRow(scene.input.destination, "a.jpg", guesses({{robin.label, 0.5}}));
    EXPECT_EQ(scene.contents(csv), header + "a.jpg,European Robin,0.5000,,,,\n");
    scene.engine().appendReviewRow(scene.input.destination, "b.jpg", guesses({{robin.label, 0.5}}));
    EXPECT_EQ(scene.contents(csv),
              header + "a.jpg,European Robin,0.5000,,,,\n" + "b.jpg,European Robin,0.5000,,,,\n");
}

TEST(ReviewOutput, ARowThatCanNotBeWrittenIsIgnoredByTheRunAndRaisedByTheOperation) {
    RunScene scene;
    scene.files().fail(Operation::append, nth(1), noSpaceLeft());
    scene.picture("a.jpg", robin, 0.5);
    scene.picture("b.jpg", robin, 0.5);
    const auto report = scene.run();
    EXPECT_EQ(report.sort().unidentified, 2);
    EXPECT_EQ(report.sort().errors, 0);
    EXPECT_EQ(report.sort().warnings, std::vector<std::string>());
    EXPECT_EQ(report.lines("failure").size(), 0U);
    EXPECT_EQ(scene.contents(csv), header + "b.jpg,European Robin,0.5000,,,,\n");
    EXPECT_EQ(scene.engine().reviewRows().size(), 2U);

    scene.files().fail(Operation::append, from(3), noSpaceLeft());
    EXPECT_THROW(scene.engine().appendReviewRow(scene.input.destination, "c.jpg",
                                                guesses({{robin.label, 0.5}})),
                 Error);
}

TEST(ReviewOutput, AHeaderThatCanNotBeWrittenLeavesNoListWithoutOne) {
    RunScene scene;
    scene.files().fail(Operation::replace, nth(1), noSpaceLeft());
    scene.picture("a.jpg", robin, 0.5);
    scene.picture("b.jpg", robin, 0.5);
    scene.run();
    EXPECT_EQ(scene.contents(csv), header + "b.jpg,European Robin,0.5000,,,,\n");
}

TEST(ReviewOutput, ThePageSaysTheGateOfTheRun) {
    RunScene scene;
    scene.picture("a.jpg", robin, 0.1);
    scene.run();
    EXPECT_NE(scene.contents(page).find("1 photograph did not reach the 54% confidence"),
              std::string::npos);
}

TEST(ReviewOutput, AStoppedRunWritesThePageOfWhatItLeft) {
    RunScene scene;
    scene.picture("a.jpg", robin, 0.5);
    scene.picture("b.jpg", robin, 0.5);
    scene.files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        if (attempt.operation == Operation::copy) scene.engine().cancel();
    });
    EXPECT_EQ(scene.run().sort().stopReason, StopReason::userCancelled());
    EXPECT_TRUE(isOnPage(scene, "a.jpg"));
    EXPECT_FALSE(isOnPage(scene, "b.jpg"));
}

TEST(ReviewOutput, APageThatCanNotBeWrittenLeavesTheOldOneAndChangesNothingOfTheRun) {
    RunScene scene;
    writeFile(scene.input.destination / csv, header);
    writeFile(scene.input.destination / page, "an earlier page");
    scene.files().fail(Operation::replace, named("review.html"), noSpaceLeft());
    scene.picture("a.jpg", robin, 0.5);
    const auto report = scene.run();
    EXPECT_EQ(report.lines().back(), "finished completed, last 0");
    EXPECT_EQ(report.sort().warnings, std::vector<std::string>());
    EXPECT_EQ(scene.contents(page), "an earlier page");
}

TEST(ReviewOutput, AFindRunFromTheFirstFileLeavesPageAndList) {
    RunScene scene;
    scene.picture("a.jpg", robin, 0.5);
    scene.run();
    writeFile(scene.input.destination / page, "the page as it was");
    scene.input.mode = AppMode::find;
    scene.input.targetSpecies = {{robin.name, ""}};
    scene.run();
    EXPECT_TRUE(scene.engine().reviewRows().empty());
    EXPECT_EQ(scene.contents(page), "the page as it was");
    EXPECT_EQ(scene.contents(csv), header + "a.jpg,European Robin,0.5000,,,,\n");
}

TEST(ReviewOutput, AListThatTheUserRemovesBetweenRunsBeginsAnew) {
    RunScene scene;
    scene.picture("a.jpg", robin, 0.5);
    scene.run();
    fs::remove(scene.input.destination / csv);
    scene.run();
    EXPECT_EQ(scene.contents(csv), header + "a.jpg,European Robin,0.5000,,,,\n");
}

}  // namespace
}  // namespace ornivo
