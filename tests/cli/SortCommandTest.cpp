#include "cli/SortCommand.h"

#include <gmock/gmock.h>

#include <csignal>
#include <nlohmann/json.hpp>

#include "cli/OwnBundle.h"
#include "cli/SortScene.h"
#include "identification/BirdClassifierLabels.h"
#include "media/ImageDecoder.h"
#include "support/Pictures.h"
#include "support/PrivateTrash.h"
#include "support/SmallDisk.h"

namespace ornivo::cli {

namespace fs = std::filesystem;
using namespace ornivo::testing;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

/// How many labels the classifier has, and so many more.
std::string labelCount(int more = 0) {
    return std::to_string(BirdClassifierLabels::speciesCount() + more);
}

class SortCommandTest : public ::testing::Test {
protected:
    SortScene scene;
};

TEST_F(SortCommandTest, ARunTellsEachShotAndThenTheTotals) {
    scene.addPhotos(2);
    const Ending ending = Program::run(scene.sorting());
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.err, "");
    EXPECT_THAT(linesOf(ending.out),
                ElementsAre(MatchesRegex("IMG_0001.jpg: .* [0-9]+% → _Uncertain/"),
                            MatchesRegex("IMG_0002.jpg: .* [0-9]+% → _Uncertain/"),
                            "✓ 0 photos sorted into bird folders", "? 2 moved to _Uncertain/",
                            "2 photos had no confirmed call — accept probable calls?",
                            MatchesRegex("0 species · [0-9]+\\.[0-9]s")));
    EXPECT_TRUE(fs::exists(scene.out / "_Uncertain/IMG_0001.jpg"));
    EXPECT_EQ(SortScene::filesIn(scene.in).size(), 2U);
}

TEST_F(SortCommandTest, ABirdThatIsCalledGoesToTheFolderThatItsLineNames) {
    if (!scene.addBirds(12)) GTEST_SKIP() << "no sample photographs";
    const Ending ending = Program::run(scene.sorting({"--level", "possible"}));
    EXPECT_EQ(ending.code, 0);
    int called = 0;
    for (const auto& line : linesOf(ending.out)) {
        const auto colon = line.find(": ");
        const auto arrow = line.find(" → ");
        if (arrow == std::string::npos) continue;
        const std::string folder = line.substr(arrow + std::string(" → ").size());
        EXPECT_TRUE(fs::exists(scene.out / folder / line.substr(0, colon))) << line;
        if (folder != "_Uncertain/") ++called;
    }
    EXPECT_GT(called, 0);
    EXPECT_THAT(ending.out, HasSubstr("✓ " + std::to_string(called) + " photos sorted"));
}

TEST_F(SortCommandTest, ABurstConfirmsAFrameOnlyIfAskedTo) {
    const fs::path owl = sampleMedia() / "photos/IMG_4104.jpg";
    if (sampleMedia().empty() || !fs::exists(owl)) GTEST_SKIP() << "no sample photographs";
    // The same bird in haze: seen, but less surely.
    const Bitmap clear = ImageDecoder::decodeCGImage(owl, 640)->image;
    const auto hazy = painted(clear.width(), clear.height(), [&](int x, int y) {
        const auto dimmed = [](std::uint8_t value) {
            return static_cast<std::uint8_t>(128 + (value - 128) / 6);
        };
        const Colour colour = at(clear, x, y);
        return Colour{dimmed(colour.red), dimmed(colour.green), dimmed(colour.blue)};
    });
    writeJpeg(scene.in / "IMG_0001.jpg", clear);
    writeJpeg(scene.in / "IMG_0002.jpg", hazy);
    writeJpeg(scene.in / "IMG_0003.jpg", clear);

    const Ending plain = Program::run(scene.sorting({"--level", "confirmed"}));
    EXPECT_THAT(plain.out, HasSubstr("✓ 2 photos sorted into bird folders\n? 1 moved"));
    fs::remove_all(scene.out);
    const Ending burst =
        Program::run(scene.sorting({"--level", "confirmed", "--bursts", "confirmedOnly"}));
    EXPECT_EQ(burst.code, 0);
    EXPECT_THAT(burst.out,
                HasSubstr("✓ 3 photos sorted into bird folders\n"
                          "↳ 1 of those came from their burst, not their own confidence\n"
                          "? 0 moved to _Uncertain/\n"));
    EXPECT_EQ(SortScene::filesIn(scene.out / "Long-eared Owl").size(), 3U);
}

TEST_F(SortCommandTest, AFileThatFailsIsToldAndMakesTheExitCode1) {
    scene.addPhotos(1);
    writeFile(scene.in / "broken.jpg", "no picture");
    const Ending ending = Program::run(scene.sorting());
    EXPECT_EQ(ending.code, 1);
    EXPECT_THAT(ending.out, HasSubstr("✗ broken.jpg: The file couldn't be read.\n"));
    EXPECT_THAT(ending.out, HasSubstr("✗ 1 errors\n"));
}

TEST_F(SortCommandTest, AFolderWithoutPhotographsIsSaidToBeEmpty) {
    fs::create_directories(scene.in);
    const fs::path record = writeFile(scene.out / "_Paused/resume.json", "{}");
    const Ending ending = Program::run(scene.sorting());
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.out, "No photographs or clips found in " + scene.in.string() + ".\n");
    EXPECT_TRUE(fs::exists(record)) << "the record of a run that can go on stays";
}

TEST_F(SortCommandTest, FoldersThatCanNotBeUsedAreRefusedWithExitCode2) {
    const fs::path photo = scene.addPhoto("a.jpg");
    const fs::path library = scene.in / "Birds.photoslibrary";
    fs::create_directories(library / "originals");
    struct Row {
        Arguments arguments;
        std::string sentence;
    };
    const std::string out = scene.out.string();
    for (const Row& row : {
             Row{{"sort", (scene.in / "none").string(), out}, "There is no folder \""},
             Row{{"sort", photo.string(), out}, "\"" + photo.string() + "\" is a file. "},
             Row{{"sort", scene.in.string(), scene.in.string()},
                 "The source and the destination are the same folder, "},
             Row{{"sort", scene.in.string(), photo.string()},
                 "\"" + photo.string() + "\" is not a folder, "},
             Row{{"sort", (library / "originals").string(), out},
                 "Birds.photoslibrary is a managed photo library. Ornivo won't sort inside one — "
                 "those photographs belong to another app, which tracks them by name and "
                 "location. Export the ones you want into an ordinary folder first, then sort "
                 "that.\n"},
         }) {
        const Ending ending = Program::run(row.arguments);
        EXPECT_EQ(ending.code, 2);
        EXPECT_EQ(ending.out, "");
        EXPECT_THAT(ending.err, StartsWith(row.sentence));
        EXPECT_FALSE(fs::exists(scene.out));
    }
}

TEST_F(SortCommandTest, FilesThatLieInTheDestinationAlreadyAreLeftOut) {
    scene.addPhotos(1);
    scene.addPhoto("sorted/Hoopoe/old.jpg");
    scene.addPhoto("sorted2/other.jpg");
    const fs::path destination = scene.in / "sorted";
    const Ending ending = Program::run({"sort", scene.in.string(), destination.string()});
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.err, "1 file that lies in the destination already is left out.\n");
    EXPECT_TRUE(fs::exists(destination / "_Uncertain/IMG_0001.jpg"));
    EXPECT_TRUE(fs::exists(destination / "_Uncertain/other.jpg"));
    EXPECT_FALSE(fs::exists(destination / "_Uncertain/old.jpg"));
}

TEST_F(SortCommandTest, OriginalsAreNotTrashedWithoutAWord) {
    scene.addPhotos(1);
    const Ending ending = Program::run(scene.sorting({"--trash-originals"}));
    EXPECT_EQ(ending.code, 2);
    EXPECT_EQ(ending.err,
              "Your originals are to go to the Trash, and there is no terminal to ask on. Add "
              "--yes to go ahead.\n");
    EXPECT_TRUE(fs::exists(scene.in / "IMG_0001.jpg"));
    EXPECT_FALSE(fs::exists(scene.out));
}

TEST_F(SortCommandTest, WithAYesOriginalsGoToTheTrashOnceTheirCopiesStand) {
    scene.addPhoto("trash-with-yes.jpg");
    const Ending ending = Program::run(scene.sorting({"--trash-originals", "--yes"}));
    EXPECT_EQ(ending.code, 0);
    EXPECT_FALSE(fs::exists(scene.in / "trash-with-yes.jpg"));
    EXPECT_TRUE(fs::exists(scene.out / "_Uncertain/trash-with-yes.jpg"));
    EXPECT_TRUE(fs::exists(privateTrash() / "trash-with-yes.jpg"));
}

TEST_F(SortCommandTest, WithoutAModelEachShotReportsTheReason) {
    scene.addPhotos(2);
    const OwnBundle bundle;
    fs::remove(bundle.file("BirdClassifier.mlpackage"));
    const Ending ending = Program::run(scene.sorting(), {}, bundle.program());
    EXPECT_EQ(ending.code, 1);
    EXPECT_THAT(ending.out,
                AllOf(HasSubstr("✗ IMG_0001.jpg: BirdClassifier.mlpackage was not found in the "
                                "package bundle.\n"),
                      HasSubstr("✗ 2 errors\n")));
}

TEST_F(SortCommandTest, WithoutANameTableEachShotReportsTheMismatch) {
    scene.addPhotos(1);
    const OwnBundle bundle;
    fs::remove(bundle.file("bird_common_names.json"));
    const Ending ending = Program::run(scene.sorting(), {}, bundle.program());
    EXPECT_EQ(ending.code, 1);
    EXPECT_THAT(ending.out,
                HasSubstr("✗ IMG_0001.jpg: The bundled classifier does not match its common-name "
                          "lookup. Model has " +
                          labelCount() +
                          " labels, lookup has 0. In model only: ["
                          "\"Acanthis_flammea\", "));
    EXPECT_THAT(ending.out, HasSubstr("]. In lookup only: [].\n"));
}

TEST_F(SortCommandTest, ANameTableWithOneLabelTooManyIsNamedByEachShot) {
    scene.addPhotos(1);
    const OwnBundle bundle;
    const fs::path table = bundle.file("bird_common_names.json");
    writeFile(table, R"({"Zz_extra": "Extra Bird",)" + readFile(table).substr(1));
    const Ending ending = Program::run(scene.sorting(), {}, bundle.program());
    EXPECT_EQ(ending.code, 1);
    EXPECT_THAT(ending.out,
                HasSubstr("✗ IMG_0001.jpg: The bundled classifier does not match its common-name "
                          "lookup. Model has " +
                          labelCount() + " labels, lookup has " + labelCount(1) +
                          ". In model only: []. In lookup only: [\"Zz_extra\"].\n"));
}

TEST_F(SortCommandTest, AFullDiskEndsTheRunWithExitCode4AndSaysHowToGoOn) {
    const auto disk = SmallDisk::mount(2 * 1024 * 1024);
    if (!disk) GTEST_SKIP() << "nothing can be mounted here";
    scene.addPhotos(1);
    const std::string big(1400 * 1024, 'x');
    for (const char* const name : {"IMG_0002.jpg", "IMG_0003.jpg"}) {
        writeFile(scene.in / name, readFile(scene.in / "IMG_0001.jpg") + big);
    }
    const fs::path destination = *disk / "Full";
    const Ending ending = Program::run({"sort", scene.in.string(), destination.string()});
    EXPECT_EQ(ending.code, 4);
    EXPECT_THAT(ending.out,
                HasSubstr("Stopped at photo 2 of 3 — Full is full\n"
                          "Free some space and resume — the rest are untouched in your source "
                          "folder\n"));
    EXPECT_TRUE(
        ending.out.ends_with("\nTo go on then: ornivo-cli resume " + destination.string() + "\n"))
        << ending.out;
    EXPECT_THAT(ending.out, ::testing::Not(HasSubstr("IMG_0003.jpg")));
    EXPECT_EQ(SortScene::filesIn(scene.in).size(), 3U);
}

TEST_F(SortCommandTest, AReaderThatGoesAwayDoesNotEndTheRun) {
    scene.addPhotos(30);
    Program program(scene.sorting());
    program.closeOutput();
    EXPECT_EQ(program.finish().code, 0);
    EXPECT_EQ(SortScene::filesIn(scene.out).size(), 32U)
        << "30 photographs, their list and their page";
}

TEST_F(SortCommandTest, ARequestToStopEndsTheRunBetweenTwoFiles) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const SortScene fresh;
        fresh.addPhotos(300);
        Program program(fresh.sorting());
        ASSERT_TRUE(program.waitForOutput("IMG_0001.jpg"));
        program.send(signal);
        const Ending ending = program.finish();
        EXPECT_EQ(ending.code, 3);
        EXPECT_EQ(ending.err, "Stopping after this file.\n");
        EXPECT_THAT(ending.out, HasSubstr("/300 — results saved\n"));
        EXPECT_EQ(SortScene::filesIn(fresh.in).size(), 300U);
        for (const auto& file : SortScene::filesIn(fresh.out / "_Uncertain")) {
            if (file == "review.csv" || file == "review.html") continue;
            EXPECT_EQ(readFile(fresh.out / "_Uncertain" / file), readFile(fresh.in / file));
        }
    }
}

TEST_F(SortCommandTest, AfterAStopNoOriginalIsGoneWithoutItsCopy) {
    scene.addPhotos(300);
    Program program(scene.sorting({"--trash-originals", "--yes"}));
    ASSERT_TRUE(program.waitForOutput("IMG_0003.jpg"));
    program.send(SIGINT);
    EXPECT_EQ(program.finish().code, 3);
    const auto left = SortScene::filesIn(scene.in);
    EXPECT_GT(left.size(), 0U);
    EXPECT_LT(left.size(), 300U);
    for (int i = 1; i <= 300; ++i) {
        const std::string number = std::to_string(i);
        const std::string name = "IMG_" + std::string(4 - number.size(), '0') + number + ".jpg";
        EXPECT_TRUE(left.contains(name) || fs::exists(scene.out / "_Uncertain" / name)) << name;
    }
}

TEST_F(SortCommandTest, NamesThatWouldActOnATerminalAreShownSafely) {
    for (const std::string name : {"a\x1b[2Jb.jpg", "line\nfeed.jpg", "caf\xe9.jpg", "tab\t.jpg",
                                   "quote'\".jpg", "\u202Egpj.jpg"}) {
        scene.addPhoto(name);
    }
    writeFile(scene.in / "bad\x1b\n.jpg", "no picture");
    const Ending ending = Program::run(scene.sorting());
    EXPECT_EQ(ending.code, 1);
    for (const std::string& text : {ending.out, ending.err}) {
        for (const char byte : text) {
            EXPECT_TRUE(byte == '\n' || static_cast<unsigned char>(byte) >= 0x20) << text;
        }
    }
    EXPECT_THAT(ending.out, HasSubstr("a\uFFFD[2Jb.jpg: "));
    EXPECT_THAT(ending.out, HasSubstr("line\uFFFDfeed.jpg: "));
    EXPECT_THAT(ending.out, HasSubstr("caf\uFFFD.jpg: "));
    EXPECT_THAT(ending.out, HasSubstr("quote'\".jpg: "));
    EXPECT_THAT(ending.out, HasSubstr("\n\uFFFDgpj.jpg: "));
    EXPECT_TRUE(fs::exists(scene.out / "_Uncertain/caf\xe9.jpg"));
}

TEST_F(SortCommandTest, WarningsStandShortInTheTotalsAndWholeBesideTheOutput) {
    const auto disk = SmallDisk::mount(1024 * 1024);
    if (!disk) GTEST_SKIP() << "nothing can be mounted here";
    scene.addPhotos(5);
    for (const auto& name : SortScene::filesIn(scene.in)) {
        fs::copy_file(scene.in / name, *disk / name);
    }
    ASSERT_TRUE(disk->makeReadOnly());
    const Ending ending = Program::run(
        {"sort", disk->path().string(), scene.out.string(), "--trash-originals", "--yes"});
    EXPECT_EQ(ending.code, 0);
    const auto warnings = linesOf(ending.err);
    ASSERT_EQ(warnings.size(), 5U) << ending.err;
    EXPECT_THAT(warnings[0], HasSubstr("IMG_0001.jpg"));
    EXPECT_THAT(ending.out,
                HasSubstr(warnings[0] + "\n" + warnings[1] + "\n" + warnings[2] + "\n+ 2 more\n"));
    EXPECT_EQ(SortScene::filesIn(disk->path()).size(), 5U);
}

}  // namespace ornivo::cli
