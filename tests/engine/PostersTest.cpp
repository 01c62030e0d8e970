// The pictures that stand in on the review page for files that no browser shows.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "engine/PausedRun.h"
#include "media/ImageDecoder.h"
#include "platform/StillDecoder.h"
#include "review/PosterFolder.h"
#include "review/ReviewDecisions.h"
#include "support/Clips.h"
#include "support/RunScene.h"
#include "support/SmallDisk.h"

namespace ornivo {
namespace {

using namespace testing;
using ::testing::HasSubstr;
using ::testing::Not;
namespace fs = std::filesystem;
using Names = std::set<std::string>;
using Operation = FailingFiles::Operation;

constexpr double unsure = 0.3;
const std::string page = "_Uncertain/review.html";
const std::string posters = "_Uncertain/.review-pictures/";

class Posters : public ::testing::Test {
protected:
    /// A file of the list that shows a bird of which the identifier isn't sure.
    fs::path unsureOf(const fs::path& file, int width) {
        scene_.identifier().answer(width, guesses({{robin.label, unsure}}));
        scene_.input.paths.push_back(file);
        return file;
    }

    fs::path clip(const std::string& name, const FFmpegArguments& output) {
        return unsureOf(writeClip(scene_.source() / name, plainPictures("red", 64, 48, 3), output),
                        64);
    }

    fs::path at(const std::string& path) const { return scene_.input.destination / path; }

    /// The poster's picture; a grey dot where there is none.
    Bitmap poster(const std::string& name) const {
        const auto still = decodeStill(at(posters + name), std::nullopt);
        EXPECT_TRUE(still) << name;
        return still ? still->bitmap : filled(1, 1);
    }

    Names postersThere() const {
        Names names;
        for (const std::string& each : scene_.filed()) {
            if (each.starts_with(posters)) names.insert(each.substr(posters.size()));
        }
        return names;
    }

    /// The table of the page that tells what it shows in place of a row's file.
    std::string standIns() const {
        const std::string html = scene_.contents(page);
        const std::string opening = "const STAND_INS = ";
        const std::size_t start = html.find(opening) + opening.size();
        return html.substr(start, html.find(";\n", start) - start);
    }

    RunScene scene_;
};

TEST_F(Posters, ARawFileHasOneThatThePageNames) {
    const fs::path raw = scene_.raw("a b.dng", robin, unsure);
    const auto report = scene_.run();
    EXPECT_EQ(report.sort().unidentified, 1);
    EXPECT_EQ(report.sort().warnings, std::vector<std::string>());
    EXPECT_EQ(scene_.filed(), (Names{"_Uncertain/a b.dng", "_Uncertain/review.csv", page,
                                     posters + "a b.dng.jpg"}));
    EXPECT_EQ(standIns(), R"([[0,".review-pictures/a%20b.dng.jpg"]])");
    const auto developed = ImageDecoder::decode(raw, 1600, /*measureQuality=*/false);
    ASSERT_TRUE(developed);
    const auto picture = poster("a b.dng.jpg");
    EXPECT_EQ(picture.width(), developed->image.width());
    EXPECT_TRUE(isNear(testing::at(picture, 100, 100), testing::at(developed->image, 100, 100), 6));
}

TEST_F(Posters, ATiffHasOneThatStandsUprightAndIsReduced) {
    unsureOf(writeTiffInPlanes(scene_.source() / "a.tif", quarters(2000, 1000), /*orientation=*/6),
             640);
    scene_.run();
    const auto picture = poster("a.tif.jpg");
    EXPECT_EQ(picture.width(), 800);
    EXPECT_EQ(picture.height(), 1600);
    // Turned by a quarter to the right: blue comes to the top left.
    EXPECT_TRUE(isNear(testing::at(picture, 100, 100), {0, 0, 255}, 12));
    EXPECT_TRUE(isNear(testing::at(picture, 700, 100), {255, 0, 0}, 12));
}

TEST_F(Posters, AHeicFileHasOne) {
    if (!canWriteHeic()) GTEST_SKIP() << "this HEIC library can't write";
    unsureOf(writeHeic(scene_.source() / "a.HEIC", quarters(80, 60)), 80);
    scene_.run();
    EXPECT_TRUE(isNear(testing::at(poster("a.HEIC.jpg"), 10, 10), {255, 0, 0}, 30));
}

TEST_F(Posters, AClipHasOneOnlyWhereBrowsersLackItsCodec) {
    if (!canEncode("libx265")) GTEST_SKIP() << "This ffmpeg has no encoder libx265.";
    const FFmpegArguments eightBits{"-c:v", "libx264", "-pix_fmt", "yuv420p"};
    const FFmpegArguments tenBits{"-c:v", "libx264", "-pix_fmt", "yuv420p10le"};
    clip("high.mp4", eightBits);
    clip("high10.mp4", tenBits);
    clip("hevc.mov", {"-c:v", "libx265", "-tag:v", "hvc1"});
    clip("jpegs.mov", {"-c:v", "mjpeg"});
    scene_.run();
    EXPECT_EQ(postersThere(), (Names{"high10.mp4.jpg", "hevc.mov.jpg", "jpegs.mov.jpg"}));
    EXPECT_TRUE(isNear(testing::at(poster("hevc.mov.jpg"), 30, 20), {255, 0, 0}, 12));
}

TEST_F(Posters, ThatOfAClipIsFromItsFirstThird) {
    unsureOf(writeClip(scene_.source() / "a.mov", clockPictures(12), {"-c:v", "mjpeg"}), 64);
    scene_.run();
    const double second = secondShown(poster("a.mov.jpg"), 12);
    EXPECT_GT(second, 0.5);
    EXPECT_LT(second, 4.5);
}

TEST_F(Posters, AShotWhoseJpegLiesBesideItNeedsNone) {
    scene_.raw("a.dng", robin, unsure);
    scene_.picture("a.jpg", robin, unsure);
    scene_.run();
    EXPECT_EQ(postersThere(), Names());
    EXPECT_EQ(standIns(), R"([[0,"a.jpg"]])");
}

TEST_F(Posters, ThePageNamesTheJpegAsItLiesThere) {
    writeFile(at("_Uncertain/a.jpg"), "earlier");
    scene_.raw("a.dng", robin, unsure);
    scene_.picture("a.jpg", robin, unsure);
    scene_.run();
    EXPECT_EQ(standIns(), R"([[0,"a_1.jpg"]])");
}

TEST_F(Posters, AFileThatBrowsersShowHasNoStandIn) {
    scene_.picture("a.jpg", robin, unsure);
    scene_.raw("a.dng", robin, unsure);
    unsureOf(writePng(scene_.source() / "b.PNG", filled(90, 60)), 90);
    unsureOf(writeWebp(scene_.source() / "c.webp", filled(90, 60)), 90);
    scene_.run();
    EXPECT_EQ(postersThere(), Names());
    EXPECT_EQ(standIns(), "[]");
}

TEST_F(Posters, AShotThatIsCalledHasNone) {
    scene_.raw("a.dng", robin, 0.9);
    scene_.run();
    EXPECT_EQ(scene_.filed(), Names{"European Robin/a.dng"});
}

TEST_F(Posters, ANameThatIsNotUTF8IsNamedByItsBytes) {
    scene_.raw("caf\xe9#1?.dng", robin, unsure);
    scene_.run();
    EXPECT_EQ(postersThere(), Names{"caf\xe9#1?.dng.jpg"});
    EXPECT_EQ(standIns(), R"([[0,".review-pictures/caf%E9%231%3F.dng.jpg"]])");
}

TEST_F(Posters, RowsWithoutAStandInAreLeftOutOfTheTable) {
    scene_.picture("a.jpg", robin, unsure);
    scene_.raw("b.dng", robin, unsure);
    scene_.raw("c.dng", robin, unsure);
    scene_.run();
    EXPECT_EQ(standIns(), R"([[1,".review-pictures/b.dng.jpg"],[2,".review-pictures/c.dng.jpg"]])");
}

TEST_F(Posters, OneThatTheBurstPassTakesOutGoes) {
    scene_.input.options.burstInheritance = BurstInheritance::confirmedOnly;
    scene_.picture("IMG_1.jpg", robin, 0.9);
    scene_.raw("IMG_2.dng", robin, unsure);
    scene_.raw("IMG_90.dng", grebe, unsure);
    EXPECT_EQ(scene_.run().sort().burstPromoted, 1);
    EXPECT_TRUE(fs::exists(at("European Robin/IMG_2.dng")));
    EXPECT_EQ(postersThere(), Names{"IMG_90.dng.jpg"});
    EXPECT_EQ(standIns(), R"([[0,".review-pictures/IMG_90.dng.jpg"]])");
}

TEST_F(Posters, OneOfAFiledDecisionGoesAndNoOther) {
    scene_.raw("a.dng", robin, unsure);
    scene_.raw("b.dng", robin, unsure);
    scene_.run();
    EXPECT_EQ(
        ReviewDecisions::apply({{"a.dng", "Wren"}}, scene_.input.destination, scene_.files()).moved,
        1);
    EXPECT_TRUE(fs::exists(at("Wren/a.dng")));
    EXPECT_EQ(postersThere(), Names{"b.dng.jpg"});
}

TEST_F(Posters, OneGoesTooWhenTheDecisionNamesAnotherFileOfTheShot) {
    if (!canWriteHeic()) GTEST_SKIP() << "this HEIC library can't write";
    scene_.raw("a.dng", robin, unsure);
    unsureOf(writeHeic(scene_.source() / "a.heic", filled(80, 60)), 80);
    scene_.run();
    ASSERT_EQ(postersThere(), Names{"a.dng.jpg"});
    ReviewDecisions::apply({{"a.heic", "Wren"}}, scene_.input.destination, scene_.files());
    EXPECT_EQ(postersThere(), Names());
}

TEST_F(Posters, TheNextRunsPageTakesThoseOfThePageBeforeAway) {
    scene_.raw("a.dng", robin, unsure);
    scene_.run();
    scene_.input.paths.clear();
    scene_.picture("sure.jpg", robin, 0.9);
    scene_.run();
    EXPECT_EQ(postersThere(), Names{"a.dng.jpg"}) << "the page is still there";
    scene_.input.paths.clear();
    scene_.raw("b.dng", robin, unsure);
    scene_.run();
    EXPECT_EQ(postersThere(), Names{"b.dng.jpg"});
    EXPECT_TRUE(fs::exists(at("_Uncertain/a.dng")));
}

TEST_F(Posters, APageThatCouldNotBeWrittenTakesNothingAway) {
    scene_.raw("a.dng", robin, unsure);
    scene_.run();
    scene_.input.paths.clear();
    scene_.raw("b.dng", robin, unsure);
    scene_.files().fail(Operation::replace, named("review.html"), noSpaceLeft());
    scene_.run();
    EXPECT_EQ(postersThere(), (Names{"a.dng.jpg", "b.dng.jpg"}));
}

TEST_F(Posters, AnOlderOneOfTheSameNameIsReplaced) {
    writeFile(at(posters + "a.dng.jpg"), PosterFolder::marked("\xFF\xD8 of long ago"));
    scene_.raw("a.dng", robin, unsure);
    scene_.run();
    EXPECT_GE(poster("a.dng.jpg").width(), 300);
}

TEST_F(Posters, NobodyElsesFileIsTouched) {
    const std::string ours = PosterFolder::marked("\xFF\xD8 and so on");
    const std::string foreign = "\xFF\xD8 a picture of somebody's own";
    writeFile(at(posters + "a.dng.jpg"), foreign);
    writeFile(at(posters + "notes.txt"), "mine");
    writeFile(at(posters + "retouched.dng.jpg"), ours + "!");
    writeFile(at(posters + "cut off.dng.jpg"), ours.substr(0, ours.size() - 1));
    writeFile(at(posters + "old.dng.jpg"), ours);
    scene_.raw("a.dng", robin, unsure);
    scene_.run();
    EXPECT_EQ(postersThere(),
              (Names{"a.dng.jpg", "notes.txt", "retouched.dng.jpg", "cut off.dng.jpg"}));
    EXPECT_EQ(scene_.contents(posters + "a.dng.jpg"), foreign);
    EXPECT_EQ(standIns(), "[]");
    ReviewDecisions::apply({{"a.dng", "Wren"}}, scene_.input.destination, scene_.files());
    EXPECT_EQ(scene_.contents(posters + "a.dng.jpg"), foreign);
}

TEST_F(Posters, ALinkInPlaceOfTheFolderIsNotFollowed) {
    const fs::path elsewhere = scene_.source() / "elsewhere";
    const fs::path theirs =
        writeFile(elsewhere / "b.dng.jpg", PosterFolder::marked("\xFF\xD8 theirs"));
    fs::create_directories(at("_Uncertain"));
    fs::create_directory_symlink(elsewhere, at("_Uncertain/.review-pictures"));
    scene_.raw("a.dng", robin, unsure);
    scene_.run();
    EXPECT_EQ(standIns(), "[]");
    EXPECT_FALSE(fs::exists(elsewhere / "a.dng.jpg"));
    EXPECT_TRUE(fs::exists(theirs));
}

TEST_F(Posters, OneThatCanNotBeWrittenFailsNoShot) {
    for (const Error& error : {noSpaceLeft(), notPermitted()}) {
        scene_.files().fail(Operation::create, nth(1), error);
    }
    scene_.raw("a.dng", robin, unsure);
    scene_.raw("b.dng", robin, unsure);
    const auto report = scene_.run();
    EXPECT_EQ(report.lines().back(), "finished completed, last 1");
    EXPECT_EQ(report.sort().unidentified, 2);
    EXPECT_EQ(report.sort().errors, 0);
    EXPECT_EQ(report.sort().warnings, std::vector<std::string>());
    EXPECT_EQ(standIns(), R"([[1,".review-pictures/b.dng.jpg"]])");
}

TEST_F(Posters, OneThatCanNotBeRemovedFailsNothing) {
    scene_.input.options.burstInheritance = BurstInheritance::confirmedOnly;
    scene_.picture("IMG_1.jpg", robin, 0.9);
    scene_.raw("IMG_2.dng", robin, unsure);
    scene_.files().fail(Operation::remove, named("IMG_2.dng.jpg"), notPermitted());
    const auto report = scene_.run();
    EXPECT_EQ(report.sort().burstPromoted, 1);
    EXPECT_EQ(report.sort().warnings, std::vector<std::string>());
    EXPECT_EQ(postersThere(), Names{"IMG_2.dng.jpg"});
}

TEST_F(Posters, TheShotAndItsRowAreWrittenBeforeIt) {
    scene_.raw("a.dng", robin, unsure);
    scene_.files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        if (attempt.operation != Operation::create) return;
        EXPECT_TRUE(fs::exists(at("_Uncertain/a.dng")));
        EXPECT_THAT(scene_.contents("_Uncertain/review.csv"), HasSubstr("\na.dng,"));
    });
    scene_.run();
    EXPECT_EQ(postersThere(), Names{"a.dng.jpg"});
}

TEST_F(Posters, WhereOriginalsGoToTheTrashThereAreNone) {
    scene_.input.options.mode = CopyMode::trashOriginal;
    scene_.raw("a.dng", robin, unsure);
    scene_.run();
    EXPECT_EQ(scene_.filed(), (Names{"_Uncertain/a.dng", "_Uncertain/review.csv", page}));
    EXPECT_EQ(standIns(), "[]");
}

TEST_F(Posters, ASearchMakesAndRemovesNone) {
    scene_.raw("a.dng", robin, unsure);
    scene_.run();
    scene_.input.paths.clear();
    scene_.raw("b.dng", robin, unsure);
    scene_.input.mode = AppMode::find;
    scene_.input.targetSpecies = {{robin.name, ""}};
    scene_.run();
    EXPECT_EQ(postersThere(), Names{"a.dng.jpg"});
}

TEST_F(Posters, ShotsInDayFoldersHaveNone) {
    scene_.input.options.dateSubfolders = true;
    scene_.raw("a.dng", robin, unsure);
    scene_.run();
    EXPECT_EQ(postersThere(), Names());
    EXPECT_EQ(standIns(), "[]");
}

/// Real files that say of themselves that they only pretend.
class PretendedFiles : public FailingFiles {
public:
    bool changesDisk() const override { return false; }
};

TEST_F(Posters, ARunThatOnlyPretendsMakesNone) {
    SortEngine engine(scene_.sharedIdentifier(), std::make_shared<JobController>(),
                      std::make_shared<PretendedFiles>());
    scene_.raw("a.dng", robin, unsure);
    readToEnd(engine.run(scene_.input));
    EXPECT_EQ(postersThere(), Names());
}

TEST_F(Posters, AStoppedRunsPageShowsThem) {
    scene_.raw("a.dng", robin, unsure);
    scene_.raw("b.dng", robin, unsure);
    scene_.files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        if (attempt.operation == Operation::create) scene_.engine().cancel();
    });
    EXPECT_EQ(scene_.run().sort().stopReason, StopReason::userCancelled());
    EXPECT_EQ(standIns(), R"([[0,".review-pictures/a.dng.jpg"]])");
}

/// A destination on a real file system that fills up.
class PostersOnAFullDisk : public ::testing::Test {
protected:
    void SetUp() override {
        if (!disk_) GTEST_SKIP() << "this user may not mount a small file system";
        scene_ =
            std::make_unique<RunScene>(std::make_shared<ScriptedIdentifier>(), *disk_ / "sorted");
        writeFile(*disk_ / "ballast", std::string(1 << 20, 'x'));
    }

    void fillUp() {
        const std::string rest(static_cast<std::size_t>(disk_->freeBytes()), 'x');
        std::ofstream(*disk_ / "filler", std::ios::app) << rest;
    }

    std::string standIns() const {
        const std::string html = scene_->contents(page);
        const std::size_t start = html.find("const STAND_INS = ");
        return html.substr(start, html.find('\n', start) - start);
    }

    const std::unique_ptr<SmallDisk> disk_ = SmallDisk::mount(4 << 20);
    std::unique_ptr<RunScene> scene_;
};

TEST_F(PostersOnAFullDisk, OneWithoutRoomIsLeftOutAndNothingElseIsLost) {
    scene_->raw("a.dng", robin, unsure);
    scene_->raw("b.dng", robin, unsure);
    scene_->picture("c.jpg", robin, 0.9);
    scene_->files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        if (attempt.operation == Operation::create && attempt.number == 2) fillUp();
    });
    const auto report = scene_->run();
    EXPECT_EQ(report.lines().back(), "finished diskFull, last 1");
    EXPECT_EQ(report.sort().unidentified, 2);
    EXPECT_EQ(report.sort().errors, 0);
    EXPECT_EQ(scene_->filed(),
              (Names{"_Uncertain/a.dng", "_Uncertain/b.dng", "_Uncertain/review.csv", page,
                     posters + "a.dng.jpg", "_Paused/resume.json"}));
    EXPECT_EQ(standIns(), R"(const STAND_INS = [[0,".review-pictures/a.dng.jpg"]];)");
    const auto record = PausedRun::read(scene_->input.destination, scene_->files());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->stoppedAtIndex, 2);
}

TEST_F(PostersOnAFullDisk, RoomIsKeptForTheirAddressesOnThePage) {
    std::string longName;
    for (int i = 0; i < 115; ++i) longName += "é";
    scene_->identifier().answer(64, guesses({{robin.label, unsure}}));
    for (int i = 0; i < 200; ++i) {
        scene_->input.paths.push_back(
            writeTiff(scene_->source() / (longName + std::to_string(i) + ".tif"), filled(64, 8)));
    }
    scene_->picture("last.jpg", robin, 0.9);
    scene_->files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        const bool isLast =
            attempt.operation == Operation::copy && attempt.path.filename() == "last.jpg";
        if (isLast) fillUp();
    });
    EXPECT_EQ(scene_->run().lines().back(), "finished diskFull, last 199");
    EXPECT_THAT(standIns(), HasSubstr("],[199,\".review-pictures/%C3%A9%C3%A9"));
    EXPECT_TRUE(PausedRun::read(scene_->input.destination, scene_->files()));
}

TEST_F(PostersOnAFullDisk, AResumeKeepsThoseOfTheRowsThatItKeeps) {
    scene_->raw("a.dng", robin, unsure);
    scene_->raw("b.dng", robin, unsure);
    scene_->files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        const bool isSecond =
            attempt.operation == Operation::copy && attempt.path.filename() == "b.dng";
        if (isSecond && attempt.number == 2) fillUp();
    });
    ASSERT_EQ(scene_->run().lines().back(), "finished diskFull, last 0");
    ASSERT_TRUE(scene_->filed().contains(posters + "a.dng.jpg"));

    fs::remove(*disk_ / "ballast");
    scene_->input.startIndex = 1;
    EXPECT_EQ(scene_->run().lines().back(), "finished completed, last 1");
    EXPECT_EQ(standIns(), R"(const STAND_INS = [[0,".review-pictures/a.dng.jpg"],)"
                          R"([1,".review-pictures/b.dng.jpg"]];)");
    EXPECT_TRUE(scene_->filed().contains(posters + "a.dng.jpg"));
    EXPECT_TRUE(scene_->filed().contains(posters + "b.dng.jpg"));
}

TEST_F(PostersOnAFullDisk, AResumeInANewProcessKeepsThoseOfItsOwnPageAlone) {
    scene_->raw("a.dng", robin, unsure);
    scene_->raw("b.dng", robin, unsure);
    scene_->files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        if (attempt.operation == Operation::copy && attempt.number == 2) fillUp();
    });
    ASSERT_EQ(scene_->run().lines().back(), "finished diskFull, last 0");
    fs::remove(*disk_ / "ballast");
    scene_->relaunch();
    scene_->input.startIndex = 1;
    scene_->run();
    EXPECT_EQ(standIns(), R"(const STAND_INS = [[0,".review-pictures/b.dng.jpg"]];)");
    EXPECT_FALSE(scene_->filed().contains(posters + "a.dng.jpg"));
}

}  // namespace
}  // namespace ornivo
