#include "cli/CheckCommand.h"

#include <gmock/gmock.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "cli/SortScene.h"
#include "media/FileScanner.h"
#include "platform/FileSizeText.h"
#include "support/LoopDisk.h"
#include "support/Pictures.h"
#include "support/SmallDisk.h"

namespace ornivo::cli {

namespace fs = std::filesystem;
using namespace ornivo::testing;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::StartsWith;

class CheckCommandTest : public ::testing::Test {
protected:
    Ending check(const Arguments& more = {}) const {
        Arguments words{"check", scene.in.string()};
        words.insert(words.end(), more.begin(), more.end());
        return Program::run(words);
    }

    void addLocatedPhoto(const std::string& name) const {
        writeJpeg(scene.in / name, 24, 24, {.exif = {.position = std::pair(-33.9, 151.2)}});
    }

    /// Makes the photographs take up more than a mebibyte.
    void addHeavyPhoto() const {
        std::ofstream(scene.addPhoto("heavy.jpg"), std::ios::app) << std::string(2 << 20, 'x');
    }

    /// How much room the photographs take up, in words.
    std::string size() const { return fileSizeText(bytes(), "en"); }
    std::int64_t bytes() const { return FileScanner::scan(scene.in).totalBytes; }

    SortScene scene;
};

const std::string regionAdvice =
    "Naming where you were shooting makes the classifier prefer birds actually recorded there. "
    "Species from elsewhere are ranked lower, never ruled out.";
const std::string regionOptions = "Name it with --region or --at when you sort.";

TEST_F(CheckCommandTest, WithoutADestinationItTellsOfThePhotosAlone) {
    scene.addPhotos(2);
    addLocatedPhoto("located.jpg");
    const Ending ending = check();
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.err, "");
    EXPECT_THAT(linesOf(ending.out), ElementsAre("3 photos found (including subfolders), " + size(),
                                                 "Location known for 1 of 3 photos."));
}

TEST_F(CheckCommandTest, PhotosWithoutALocationAreToldWithTheWayOut) {
    scene.addPhotos(1);
    EXPECT_THAT(linesOf(check().out),
                ElementsAre("1 photo found (including subfolders), " + size(),
                            "These photos carry no location.", regionAdvice, regionOptions));
}

TEST_F(CheckCommandTest, OfManyPhotosASampleIsLookedAt) {
    addLocatedPhoto("a.jpg");
    for (int i = 0; i < 120; ++i) {
        fs::copy_file(scene.in / "a.jpg", scene.in / ("b" + std::to_string(i) + ".jpg"));
    }
    EXPECT_THAT(linesOf(check().out),
                ElementsAre("121 photos found (including subfolders), " + size(),
                            "Location known for 60 of 60 photos looked at."));
}

TEST_F(CheckCommandTest, AFolderWithoutPhotosSaysSoAndNothingMore) {
    writeFile(scene.in / "notes.txt", "no photo");
    const Ending ending = check({scene.out.string()});
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.out, "No photos found\n");
}

TEST_F(CheckCommandTest, ATightFitIsToldAndIsNoFailure) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "this user may not mount a small file system";
    addLocatedPhoto("a.jpg");
    const Ending ending = check({(*disk / "not/yet").string()});
    EXPECT_EQ(ending.code, 0);
    EXPECT_THAT(linesOf(ending.out),
                ElementsAre("1 photo found (including subfolders), " + size(),
                            "Location known for 1 of 1 photo.",
                            "About " + size() + " needed and only 1 MB free on " +
                                disk->path().filename().string() +
                                " — close enough that anything else running could fill it."));
    EXPECT_TRUE(fs::is_empty(disk->path())) << "nothing is made";
}

TEST_F(CheckCommandTest, ThePicturesForTheReviewPageNeedRoomToo) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "this user may not mount a small file system";
    writeFile(scene.in / "a.nef", "a RAW file");
    EXPECT_EQ(check({disk->path().string()}).code, 0);
    writeFile(scene.in / "b.nef", "another");
    ASSERT_LT(bytes(), 1 << 20);
    const Ending ending = check({disk->path().string()});
    EXPECT_EQ(ending.code, 4);
    EXPECT_THAT(linesOf(ending.out).back(),
                StartsWith("Not enough room: about 1.2 MB needed, 1 MB free on "));
    EXPECT_THAT(linesOf(ending.out).front(), EndsWith(size()));
}

TEST_F(CheckCommandTest, WhatDoesNotFitIsExitCode4) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "this user may not mount a small file system";
    addHeavyPhoto();
    const std::string shortfall = fileSizeText(bytes() - (1 << 20), "en");
    const Ending ending = check({disk->path().string()});
    EXPECT_EQ(ending.code, 4);
    EXPECT_EQ(linesOf(ending.out).back(),
              "Not enough room: about " + size() + " needed, 1 MB free on " +
                  disk->path().filename().string() + ". Free about " + shortfall +
                  ", or sort to a folder on the same disk as your photos — copies there cost "
                  "nothing.");
}

TEST_F(CheckCommandTest, OnADiskThatClonesNoSpaceIsNeeded) {
    const auto disk = LoopDisk::mount(LoopDisk::Kind::btrfs);
    if (!disk) GTEST_SKIP() << "no btrfs can be made and mounted here";
    writeJpeg(*disk / "in/a.jpg", 24, 24);
    const Ending ending =
        Program::run({"check", (*disk / "in").string(), (*disk / "out").string()});
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(linesOf(ending.out).back(),
              "No extra space needed — Bird disk is the same disk as your photos, so the sorted "
              "copies share storage with the originals.");
}

TEST_F(CheckCommandTest, WhatLiesInTheDestinationIsLeftOut) {
    scene.addPhotos(1);
    const std::string before = size();
    const fs::path destination = scene.in / "sorted";
    writeJpeg(destination / "Osprey/b.jpg", 400, 400);
    const Ending ending = check({destination.string()});
    EXPECT_EQ(ending.err, "1 file that lies in the destination already is left out.\n");
    EXPECT_EQ(linesOf(ending.out).front(), "1 photo found (including subfolders), " + before);
}

TEST_F(CheckCommandTest, AHiddenDestinationInTheSourceTakesNothingAway) {
    scene.addPhotos(1);
    const std::string before = size();
    const fs::path destination = scene.in / ".sorted";
    writeJpeg(destination / "Osprey/b.jpg", 400, 400);
    const Ending ending = check({destination.string()});
    EXPECT_EQ(ending.err, "");
    EXPECT_EQ(linesOf(ending.out).front(), "1 photo found (including subfolders), " + before);
}

TEST_F(CheckCommandTest, JsonTellsEverything) {
    const auto disk = SmallDisk::mount(1 << 20);
    if (!disk) GTEST_SKIP() << "this user may not mount a small file system";
    addHeavyPhoto();
    addLocatedPhoto("located.jpg");
    const Ending ending = check({disk->path().string(), "--json"});
    EXPECT_EQ(ending.code, 4);
    auto json = nlohmann::json::parse(ending.out);
    const std::string advice = json["space"]["advice"];
    EXPECT_THAT(advice, ::testing::StartsWith("Not enough room: about " + size()));
    json["space"].erase("advice");
    EXPECT_EQ(json, (nlohmann::json{
                        {"source", scene.in.string()},
                        {"destination", disk->path().string()},
                        {"files", 2},
                        {"leftOut", 0},
                        {"bytes", bytes()},
                        {"survey", {{"checked", 2}, {"withLocation", 1}, {"total", 2}}},
                        {"space",
                         {{"verdict", "doesNotFit"},
                          {"requiredBytes", bytes()},
                          {"availableBytes", 1 << 20},
                          {"shortfallBytes", bytes() - (1 << 20)},
                          {"volume", disk->path().filename().string()}}},
                    }));
}

TEST_F(CheckCommandTest, JsonWithoutADestinationHasNoneAndNoSpace) {
    scene.addPhotos(1);
    const auto json = nlohmann::json::parse(check({"--json"}).out);
    EXPECT_EQ(json.at("files"), 1);
    EXPECT_TRUE(json.at("destination").is_null());
    EXPECT_TRUE(json.at("space").is_null());
}

TEST_F(CheckCommandTest, FoldersThatCannotBeSortedAreExitCode2) {
    const Ending missing = check();
    EXPECT_EQ(missing.code, 2);
    EXPECT_EQ(missing.err, "There is no folder \"" + scene.in.string() + "\".\n");

    scene.addPhotos(1);
    EXPECT_EQ(check({scene.in.string()}).code, 2) << "one folder for both";

    const fs::path library = scene.in / "Mine.photoslibrary";
    writeJpeg(library / "a.jpg", 24, 24);
    const Ending refused = Program::run({"check", library.string()});
    EXPECT_EQ(refused.code, 2);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err,
              "Mine.photoslibrary is a managed photo library. Ornivo won't sort inside one — those "
              "photographs belong to another app, which tracks them by name and location. Export "
              "the ones you want into an ordinary folder first, then sort that.\n");
}

TEST_F(CheckCommandTest, TheHelpTeachesByExamplesThatFitATerminal) {
    const std::string help = Program::run({"check", "--help"}).out;
    EXPECT_THAT(help, ::testing::HasSubstr("\nExamples:\n  ornivo-cli check "));
    for (const auto& line : linesOf(help)) EXPECT_LE(line.size(), 80U) << line;
}

}  // namespace ornivo::cli
