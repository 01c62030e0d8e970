#include <gtest/gtest.h>

#include "support/RunScene.h"

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;
using Operation = FailingFiles::Operation;
using Names = std::set<std::string>;

class MoveOutOfUncertain : public ::testing::Test {
protected:
    /// A file that is in the destination already.
    void alreadyThere(const std::string& path, const std::string& contents = "earlier") {
        writeFile(scene_.input.destination / path, contents);
    }

    bool moveOut(const std::string& file) {
        return scene_.engine().moveOutOfUncertain(scene_.input.destination / file,
                                                  scene_.input.destination, baldEagle.name);
    }

    void placeInUncertain(const std::string& name) {
        scene_.engine().place(scene_.sidecar(name), {}, scene_.input.destination,
                              SortEngine::uncertainFolderName, {}, {});
    }

    RunScene scene_;
};

TEST_F(MoveOutOfUncertain, AFrameLeavesUncertainWithItsShotAndAllCompanions) {
    for (const char* name : {"a.jpg", "a.cr2", "a.jpg.xmp", "a.cr2.xmp", "b.jpg"}) {
        alreadyThere(std::string("_Uncertain/") + name, name);
    }
    EXPECT_TRUE(moveOut("_Uncertain/a.jpg"));
    EXPECT_EQ(scene_.filed(), (Names{"Bald Eagle/a.jpg", "Bald Eagle/a.cr2", "Bald Eagle/a.jpg.xmp",
                                     "Bald Eagle/a.cr2.xmp", "_Uncertain/b.jpg"}));
    EXPECT_EQ(scene_.contents("Bald Eagle/a.cr2.xmp"), "a.cr2.xmp");
}

TEST_F(MoveOutOfUncertain, AFrameThatLeavesUncertainOverwritesNothingAndGetsNoDayFolder) {
    alreadyThere("Bald Eagle/a.jpg");
    alreadyThere("_Uncertain/2024-05-17/a.jpg", "the frame");
    alreadyThere("_Uncertain/2024-05-17/a.xmp", "its edits");
    EXPECT_TRUE(moveOut("_Uncertain/2024-05-17/a.jpg"));
    EXPECT_EQ(scene_.filed(),
              (Names{"Bald Eagle/a.jpg", "Bald Eagle/a_1.jpg", "Bald Eagle/a_1.xmp"}));
    EXPECT_EQ(scene_.contents("Bald Eagle/a.jpg"), "earlier");
    EXPECT_EQ(scene_.contents("Bald Eagle/a_1.jpg"), "the frame");
}

TEST_F(MoveOutOfUncertain, AFrameThatTheUserRemovedAnswersFalseAndRaisesNothing) {
    EXPECT_FALSE(moveOut("_Uncertain/a.jpg"));
    EXPECT_EQ(scene_.filed(), Names());
    EXPECT_FALSE(fs::exists(scene_.input.destination / "Bald Eagle"));
}

TEST_F(MoveOutOfUncertain, AMoveThatFailsIsRaisedAndNothingElseHasMoved) {
    alreadyThere("_Uncertain/a.jpg");
    alreadyThere("_Uncertain/a.cr2");
    alreadyThere("_Uncertain/a.jpg.xmp");
    scene_.files().fail(Operation::move, nth(1), notPermitted());
    EXPECT_THROW(moveOut("_Uncertain/a.jpg"), Error);
    EXPECT_EQ(scene_.filed(),
              (Names{"_Uncertain/a.jpg", "_Uncertain/a.cr2", "_Uncertain/a.jpg.xmp"}));
}

TEST_F(MoveOutOfUncertain, WhatDoesNotFollowAFrameOutOfUncertainStaysThereSilently) {
    alreadyThere("_Uncertain/a.jpg");
    alreadyThere("_Uncertain/a.cr2");
    alreadyThere("_Uncertain/a.cr2.xmp");
    alreadyThere("_Uncertain/a.jpg.xmp");
    alreadyThere("_Uncertain/a.jpg.pp3");
    scene_.files().fail(Operation::move, named("a.cr2"), notPermitted());
    scene_.files().fail(Operation::move, named("a.jpg.pp3"), notPermitted());
    EXPECT_TRUE(moveOut("_Uncertain/a.jpg"));
    EXPECT_EQ(scene_.filed(), (Names{"Bald Eagle/a.jpg", "Bald Eagle/a.jpg.xmp", "_Uncertain/a.cr2",
                                     "_Uncertain/a.cr2.xmp", "_Uncertain/a.jpg.pp3"}));
}

TEST_F(MoveOutOfUncertain, AFolderThatCanNotBeListedHoldsNoSiblings) {
    alreadyThere("_Uncertain/a.jpg");
    alreadyThere("_Uncertain/a.cr2");
    scene_.files().fail(Operation::namesIn, from(1), notPermitted());
    EXPECT_TRUE(moveOut("_Uncertain/a.jpg"));
    EXPECT_EQ(scene_.filed(), (Names{"Bald Eagle/a.jpg", "_Uncertain/a.cr2"}));
}

TEST_F(MoveOutOfUncertain, CompanionsPlacedSinceTheFolderWasListedAreSeen) {
    scene_.sidecar("b.jpg.xmp");
    placeInUncertain("a.jpg");
    EXPECT_TRUE(moveOut("_Uncertain/a.jpg"));
    placeInUncertain("b.jpg");
    EXPECT_TRUE(moveOut("_Uncertain/b.jpg"));
    EXPECT_EQ(scene_.filed(),
              (Names{"Bald Eagle/a.jpg", "Bald Eagle/b.jpg", "Bald Eagle/b.jpg.xmp"}));
}

TEST_F(MoveOutOfUncertain, TheFolderIsListedAnewAfterCompanionsLeftIt) {
    alreadyThere("_Uncertain/a.jpg");
    alreadyThere("_Uncertain/a.jpg.xmp");
    EXPECT_TRUE(moveOut("_Uncertain/a.jpg"));
    alreadyThere("_Uncertain/b.jpg");
    alreadyThere("_Uncertain/b.jpg.xmp");
    EXPECT_TRUE(moveOut("_Uncertain/b.jpg"));
    EXPECT_EQ(scene_.filed(), (Names{"Bald Eagle/a.jpg", "Bald Eagle/a.jpg.xmp", "Bald Eagle/b.jpg",
                                     "Bald Eagle/b.jpg.xmp"}));
}

}  // namespace
}  // namespace ornivo
