#include "cli/ResumeCommand.h"

#include <gmock/gmock.h>

#include <csignal>
#include <limits>
#include <nlohmann/json.hpp>

#include "cli/SortScene.h"
#include "engine/PausedRun.h"
#include "support/PrivateTrash.h"
#include "support/SmallDisk.h"

namespace ornivo::cli {

namespace fs = std::filesystem;
using namespace ornivo::testing;
using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

/// A run of four photographs that stopped at the third.
class ResumeCommandTest : public ::testing::Test {
protected:
    ResumeCommandTest() {
        scene.addPhotos(4);
        for (const auto& name : SortScene::filesIn(scene.in)) {
            record.sourcePaths.push_back((scene.in / name).string());
        }
        record.destination = scene.out.string();
        record.mode = "sort";
        record.gate = 0.5375;
        record.burstInheritance = "off";
        record.copyMode = "keep";
        record.totalPhotos = 4;
        record.stoppedAtIndex = 2;
        record.sortedSoFar = 1;
        record.uncertainSoFar = 1;
    }

    Ending resume(const Arguments& more = {}) const {
        EXPECT_TRUE(record.write(scene.out, *Files::system()));
        Arguments all{"resume", scene.out.string()};
        all.insert(all.end(), more.begin(), more.end());
        return Program::run(all);
    }

    bool hasRecord() const { return fs::exists(PausedRun::manifestURL(scene.out)); }

    /// The photographs that were filed.
    std::set<std::string> filed() const {
        std::set<std::string> names;
        for (const auto& name : SortScene::filesIn(scene.out)) {
            if (name.ends_with(".jpg")) names.insert(name);
        }
        return names;
    }

    SortScene scene;
    PausedRun record;
};

TEST_F(ResumeCommandTest, TheRunGoesOnAtTheVeryFileAndTellsWhatWasDoneBefore) {
    const Ending ending = resume();
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.err, "");
    EXPECT_THAT(
        linesOf(ending.out),
        ElementsAre("⏸ 2 photos left to sort into out",
                    "out ran out of space partway through. Free some room and resume. Nothing was "
                    "moved — these photos are still where you left them.",
                    "From         IMG_0001.jpg, IMG_0002.jpg, IMG_0003.jpg, IMG_0004.jpg",
                    "To           out", "Calls        Custom · files at 54%",
                    "Done so far  1 sorted · 1 to review",
                    MatchesRegex("IMG_0003.jpg: .* [0-9]+% → _Uncertain/"),
                    MatchesRegex("IMG_0004.jpg: .* [0-9]+% → _Uncertain/"),
                    "✓ 0 photos sorted into bird folders", "? 2 moved to _Uncertain/",
                    "2 photos had no confirmed call — accept probable calls?",
                    MatchesRegex("0 species · [0-9]+\\.[0-9]s"),
                    "Before that: 1 sorted · 1 to review"));
    EXPECT_EQ(filed(),
              (std::set<std::string>{"_Uncertain/IMG_0003.jpg", "_Uncertain/IMG_0004.jpg"}));
    EXPECT_FALSE(hasRecord());
}

TEST_F(ResumeCommandTest, TheSettingsAreTheRecords) {
    record.callLevel = "possible";
    record.dateSubfolders = true;
    record.copyMode = "delete";
    const Ending unasked = resume();
    EXPECT_EQ(unasked.code, 2);
    EXPECT_EQ(unasked.err,
              "Your originals are to go to the Trash, and there is no terminal to ask on. Add "
              "--yes to go ahead.\n");
    EXPECT_TRUE(hasRecord());
    EXPECT_TRUE(filed().empty());

    const Ending ending = resume({"--yes"});
    EXPECT_EQ(ending.code, 0);
    EXPECT_THAT(ending.out, HasSubstr("Calls        "));
    EXPECT_EQ(SortScene::filesIn(scene.in),
              (std::set<std::string>{"IMG_0001.jpg", "IMG_0002.jpg"}));
    EXPECT_TRUE(fs::exists(privateTrash() / "IMG_0003.jpg"));
}

TEST_F(ResumeCommandTest, OnATerminalItAsksForTheOriginalsThatAreLeft) {
    record.copyMode = "delete";
    ASSERT_TRUE(record.write(scene.out, *Files::system()));
    TerminalProgram program({"resume", scene.out.string()}, 80);
    ASSERT_TRUE(
        program.waitFor("Move 2 originals to the Trash, each once its copy is written? [y/N] "));
    program.type("n\n");
    const Ending ending = program.finish();
    EXPECT_EQ(ending.code, 3);
    EXPECT_THAT(ending.out, HasSubstr("Nothing was done."));
    EXPECT_TRUE(hasRecord());
    EXPECT_EQ(SortScene::filesIn(scene.in).size(), 4U);
}

TEST_F(ResumeCommandTest, AFileThatHasGoneIsAnErrorOfItsOwn) {
    fs::remove(scene.in / "IMG_0003.jpg");
    const Ending ending = resume();
    EXPECT_EQ(ending.code, 1);
    EXPECT_THAT(ending.out, HasSubstr("✗ IMG_0003.jpg: "));
    EXPECT_THAT(ending.out, HasSubstr("✗ 1 errors\n"));
    EXPECT_EQ(filed(), (std::set<std::string>{"_Uncertain/IMG_0004.jpg"}));
}

TEST_F(ResumeCommandTest, ASourceThatIsNotConnectedLeavesTheRecord) {
    fs::remove_all(scene.in);
    const Ending ending = resume();
    EXPECT_EQ(ending.code, 1);
    EXPECT_EQ(ending.err, "None of the files left is there, the first being " +
                              (scene.in / "IMG_0003.jpg").string() +
                              ". Is the disk on which they lie connected? Nothing was done.\n");
    EXPECT_TRUE(hasRecord());
}

TEST_F(ResumeCommandTest, AnIndexBeyondTheListRunsNothing) {
    record.stoppedAtIndex = 5;
    const Ending ending = resume();
    EXPECT_EQ(ending.code, 1);
    EXPECT_EQ(ending.out, "");
    EXPECT_EQ(ending.err,
              "The record of the paused run makes no sense: it stopped at file 5 of a list of 4. "
              "Nothing was done.\n");
    EXPECT_TRUE(hasRecord());
}

TEST_F(ResumeCommandTest, ANameThatIsNoUtf8IsReportedAsUnreadable) {
    scene.addPhoto("caf\xe9.jpg");
    record.sourcePaths.push_back((scene.in / "caf\xe9.jpg").string());
    record.totalPhotos = 5;
    const Ending ending = resume();
    EXPECT_EQ(ending.code, 1);
    EXPECT_THAT(ending.out, HasSubstr("✗ caf\uFFFD.jpg: "));
    EXPECT_EQ(filed().size(), 2U);
}

TEST_F(ResumeCommandTest, ASearchNeedsItsSpeciesAgain) {
    record.mode = "find";
    const Ending refused = resume();
    EXPECT_EQ(refused.code, 2);
    EXPECT_EQ(refused.err,
              "The paused run was a search, and its record doesn't hold the species. Name each "
              "again with --species.\n");
    EXPECT_TRUE(hasRecord());

    const Ending ending = resume({"--species", "Dodo", "--species", "Moa"});
    EXPECT_EQ(ending.code, 0);
    EXPECT_THAT(ending.err, StartsWith("⚠ Dodo\n⚠ Moa\nDodo, Moa are not among the "));
    EXPECT_THAT(ending.out, HasSubstr("~ 2 scanned, no match\n"));
    EXPECT_THAT(ending.out, HasSubstr("\nBefore that: 2 photos processed\n"));
    EXPECT_FALSE(hasRecord());
}

TEST_F(ResumeCommandTest, WithoutARecordThereIsNothingToResume) {
    fs::create_directories(scene.out);
    const Ending none = Program::run({"resume", scene.out.string()});
    EXPECT_EQ(none.code, 1);
    EXPECT_EQ(none.out, "");
    EXPECT_EQ(none.err, "There is no paused run in \"" + scene.out.string() + "\".\n");

    const fs::path file = writeFile(PausedRun::manifestURL(scene.out), "{}");
    const Ending broken = Program::run({"resume", scene.out.string()});
    EXPECT_EQ(broken.code, 1);
    EXPECT_EQ(broken.err,
              "The record of a paused run in \"" + file.string() +
                  "\" can't be used: it is damaged, or of another version of the program.\n");

    const Ending nowhere = Program::run({"resume", (scene.out / "none").string()});
    EXPECT_EQ(nowhere.code, 2);
    EXPECT_EQ(nowhere.err, "There is no folder \"" + (scene.out / "none").string() + "\".\n");
}

TEST_F(ResumeCommandTest, JsonBeginsWithWhereItGoesOn) {
    const auto lines = linesOf(resume({"--json"}).out);
    ASSERT_EQ(lines.size(), 6U);
    EXPECT_EQ(json::parse(lines[0]), (json{{"event", "resume"},
                                           {"destination", scene.out.string()},
                                           {"files", 4},
                                           {"startIndex", 2},
                                           {"sortedSoFar", 1},
                                           {"uncertainSoFar", 1}}));
    EXPECT_EQ(json::parse(lines[1])["index"], 2);
    const auto result = json::parse(lines[5])["result"];
    EXPECT_EQ(result["processed"], 4) << "over the whole list";
    EXPECT_EQ(result["total"], 4);
    EXPECT_EQ(result["unidentified"], 2) << "of this part";
}

TEST_F(ResumeCommandTest, ADryRunWritesNothing) {
    const Ending ending = resume({"--dry-run"});
    EXPECT_EQ(ending.code, 0);
    EXPECT_THAT(ending.out, HasSubstr("IMG_0003.jpg → _Uncertain/IMG_0003.jpg\n"));
    EXPECT_TRUE(ending.out.ends_with("\nDry run: nothing was written.\n"));
    EXPECT_TRUE(hasRecord());
    EXPECT_TRUE(filed().empty());
}

TEST_F(ResumeCommandTest, AStopSaysWhereTheRecordStillStands) {
    constexpr int files = 200;
    for (int i = 5; i <= files; ++i) {
        const std::string name = "IMG_" + std::to_string(10'000 + i) + ".jpg";
        fs::copy_file(scene.in / "IMG_0001.jpg", scene.in / name);
        record.sourcePaths.push_back((scene.in / name).string());
    }
    record.totalPhotos = files;
    const std::string keeping = ", and file once more what has been filed since.\n";
    for (const auto& [copyMode, consequence] :
         {std::pair("keep", keeping), std::pair("delete", std::string(".\n"))}) {
        record.copyMode = copyMode;
        ASSERT_TRUE(record.write(scene.out, *Files::system()));
        Program program({"resume", scene.out.string(), "--yes"});
        ASSERT_TRUE(program.waitForOutput("IMG_0003.jpg: "));
        program.send(SIGINT);
        const Ending ending = program.finish();
        EXPECT_EQ(ending.code, 3);
        EXPECT_TRUE(
            ending.err.ends_with("The paused run still stands at IMG_0003.jpg: resumed again, it "
                                 "would begin there" +
                                 consequence))
            << ending.err;
        EXPECT_EQ(PausedRun::read(scene.out, *Files::system()), record);
    }
}

/// A disk that can be filled and freed by hand.
class FullDiskResumeTest : public ::testing::Test {
protected:
    static constexpr std::size_t diskBytes = 8'000'000;
    static constexpr std::size_t photoBytes = 1'000'000;
    static constexpr int photos = 6;

    void SetUp() override {
        disk = SmallDisk::mount(diskBytes);
        if (!disk) GTEST_SKIP() << "nothing can be mounted here";
        scene.addPhotos(photos);
        for (const auto& name : SortScene::filesIn(scene.in)) {
            const std::string picture = readFile(scene.in / name);
            writeFile(scene.in / name,
                      picture + name + std::string(photoBytes - picture.size(), 'x'));
        }
        destination = *disk / "Birds";
    }

    /// Leaves room for so many photographs.
    void leaveRoomFor(std::size_t count) const {
        fs::remove(*disk / "ballast");
        const auto room = static_cast<std::size_t>(disk->freeBytes());
        writeFile(*disk / "ballast", std::string(room - count * photoBytes - photoBytes / 2, 'x'));
    }

    Ending sort() const { return Program::run({"sort", scene.in.string(), destination.string()}); }

    Ending resume() const { return Program::run({"resume", destination.string()}); }

    PausedRun record() const { return PausedRun::read(destination, *Files::system()).value(); }

    std::unique_ptr<SmallDisk> disk;
    SortScene scene;
    fs::path destination;
};

TEST_F(FullDiskResumeTest, AfterRoomWasMadeEverySourceEndsInExactlyOnePlace) {
    leaveRoomFor(3);
    const Ending full = sort();
    EXPECT_EQ(full.code, 4);
    EXPECT_THAT(full.out, HasSubstr("Stopped at photo 3 of 6 — Birds is full\n"));
    EXPECT_EQ(record().stoppedAtIndex, 3);

    fs::remove(*disk / "ballast");
    const Ending rest = resume();
    EXPECT_EQ(rest.code, 0);
    EXPECT_THAT(rest.out, HasSubstr("\n? 3 moved to _Uncertain/\n"));
    EXPECT_THAT(rest.out, HasSubstr("\nBefore that: 0 sorted · 3 to review\n"));
    EXPECT_FALSE(fs::exists(PausedRun::manifestURL(destination)));

    std::set<std::string> expected;
    for (const auto& name : SortScene::filesIn(scene.in)) {
        expected.insert("_Uncertain/" + name);
        EXPECT_EQ(readFile(destination / "_Uncertain" / name), readFile(scene.in / name));
    }
    auto filed = SortScene::filesIn(destination);
    std::erase_if(filed, [](const auto& name) { return !name.ends_with(".jpg"); });
    EXPECT_EQ(filed, expected);
}

TEST_F(FullDiskResumeTest, ADiskThatFillsAgainLeavesARecordOfBothParts) {
    leaveRoomFor(2);
    EXPECT_EQ(sort().code, 4);
    leaveRoomFor(2);
    const Ending again = resume();
    EXPECT_EQ(again.code, 4);
    EXPECT_THAT(again.out, HasSubstr("Stopped at photo 4 of 6 — Birds is full\n"));
    EXPECT_THAT(again.out, HasSubstr("\nTo go on then: ornivo-cli resume " + destination.string()));
    EXPECT_EQ(record().stoppedAtIndex, 4);
    EXPECT_EQ(record().uncertainSoFar, 4);
    EXPECT_EQ(record().sortedSoFar, 0);

    fs::remove(*disk / "ballast");
    const Ending rest = resume();
    EXPECT_EQ(rest.code, 0);
    EXPECT_THAT(rest.out, HasSubstr("\n? 2 moved to _Uncertain/\n"));
    EXPECT_THAT(rest.out, HasSubstr("\nBefore that: 0 sorted · 4 to review\n"));
}

TEST_F(FullDiskResumeTest, CountsOfARecordThatAreBeyondAllSenseDoNotOverflow) {
    leaveRoomFor(2);
    EXPECT_EQ(sort().code, 4);
    PausedRun absurd = record();
    absurd.sortedSoFar = std::numeric_limits<int>::min();
    absurd.uncertainSoFar = std::numeric_limits<int>::max();
    EXPECT_TRUE(absurd.write(destination, *Files::system()));
    leaveRoomFor(2);
    EXPECT_EQ(resume().code, 4);
    EXPECT_EQ(record().stoppedAtIndex, 4);
    EXPECT_EQ(record().sortedSoFar, std::numeric_limits<int>::min());
    EXPECT_EQ(record().uncertainSoFar, std::numeric_limits<int>::max());
}

}  // namespace ornivo::cli
