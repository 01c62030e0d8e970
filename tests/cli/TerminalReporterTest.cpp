#include "cli/TerminalReporter.h"

#include <gmock/gmock.h>

#include "cli/Screen.h"
#include "cli/SortScene.h"
#include "cli/TerminalText.h"
#include "support/PrivateTrash.h"

namespace ornivo::cli {

namespace fs = std::filesystem;
using namespace ornivo::testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

constexpr const char* ctrlC = "\x03";
constexpr const char* ctrlD = "\x04";

int widestOf(const std::vector<std::string>& drawings) {
    int widest = 0;
    for (const auto& drawing : drawings) widest = std::max(widest, columnsOf(drawing));
    return widest;
}

}  // namespace

class TerminalReporterTest : public ::testing::Test {
protected:
    SortScene scene;
};

TEST_F(TerminalReporterTest, OneLineIsRedrawnAndGoneBeforeTheTotals) {
    scene.addPhotos(20);
    const Ending ending = TerminalProgram(scene.sorting(), 80).finish();
    EXPECT_EQ(ending.code, 0);
    const auto drawings = drawingsIn(ending.out);
    ASSERT_GT(drawings.size(), 1U);
    EXPECT_EQ(drawings[0], "░░░░░░░░░░░░░░░░░░░░ 0/20  IMG_0001.jpg");
    EXPECT_THAT(drawings.back(), HasSubstr(" photos/s  "));
    EXPECT_THAT(drawings.back(), HasSubstr(" left  IMG_00"));
    const auto screen = screenOf(ending.out);
    ASSERT_EQ(screen.size(), 4U) << ending.out;
    EXPECT_EQ(screen[0], "✓ 0 photos sorted into bird folders");
    EXPECT_EQ(screen[1], "? 20 moved to _Uncertain/");
    EXPECT_EQ(screen[2], "20 photos had no confirmed call — accept probable calls?");
    EXPECT_THAT(screen[3], StartsWith("0 species · "));
}

TEST_F(TerminalReporterTest, TheLineFitsTheTerminalWhateverItsWidth) {
    scene.addPhotos(10);
    scene.addPhoto("IMG_鳥鳥鳥鳥鳥鳥鳥鳥鳥鳥_with_a_name_that_is_far_too_long_for_any_line.jpg");
    for (const int columns : {120, 80, 40, 20, 5}) {
        fs::remove_all(scene.out);
        const Ending ending = TerminalProgram(scene.sorting(), columns).finish();
        EXPECT_LT(widestOf(drawingsIn(ending.out)), columns);
    }
}

TEST_F(TerminalReporterTest, ATerminalThatShrinksGetsShorterLines) {
    scene.addPhotos(300);
    TerminalProgram program(scene.sorting(), 80);
    ASSERT_TRUE(program.waitFor("photos/s"));
    program.resize(30);
    program.type(ctrlC);
    const auto drawings = drawingsIn(program.finish().out);
    EXPECT_GT(columnsOf(drawings.front()), 30);
    EXPECT_LT(columnsOf(drawings.back()), 30);
}

TEST_F(TerminalReporterTest, AShotThatFailsGetsALineThatStays) {
    scene.addPhotos(3);
    writeFile(scene.in / "IMG_0002.jpg", "no picture");
    const Ending ending = TerminalProgram(scene.sorting(), 80).finish();
    EXPECT_EQ(ending.code, 1);
    EXPECT_THAT(screenOf(ending.out),
                ElementsAre("✗ IMG_0002.jpg: The file couldn't be read.",
                            "✓ 0 photos sorted into bird folders", "? 2 moved to _Uncertain/",
                            "2 photos had no confirmed call — accept probable calls?", "✗ 1 errors",
                            StartsWith("0 species · ")));
}

TEST_F(TerminalReporterTest, NamesCanNotActOnTheTerminal) {
    scene.addPhoto("a\x1b[2J\x1b[31m\nb\xff.jpg");
    writeFile(scene.in / "c\x1b]0;title\x07.jpg", "no picture");
    const Ending ending = TerminalProgram(scene.sorting(), 120).finish();
    EXPECT_THAT(ending.out, Not(HasSubstr("\x1b[2J")));
    EXPECT_THAT(ending.out, Not(HasSubstr("\x1b]0")));
    EXPECT_EQ(screenOf(ending.out)[0], "✗ c\uFFFD]0;title\uFFFD.jpg: The file couldn't be read.");
}

TEST_F(TerminalReporterTest, ColourIsLeftOutWhereItIsNotWanted) {
    scene.addPhotos(3);
    const std::string green = "\x1b[32m";
    EXPECT_THAT(TerminalProgram(scene.sorting(), 80).finish().out, HasSubstr(green));
    const auto plain = TerminalProgram(scene.sorting(), 80, {{"NO_COLOR", "1"}}).finish();
    EXPECT_THAT(plain.out, Not(HasSubstr("\x1b[3")));
    EXPECT_FALSE(drawingsIn(plain.out).empty());
}

TEST_F(TerminalReporterTest, ATerminalThatCanNotRedrawGetsALineForEachShot) {
    scene.addPhotos(2);
    const Ending ending = TerminalProgram(scene.sorting(), 80, {{"TERM", "dumb"}}).finish();
    EXPECT_THAT(ending.out, Not(HasSubstr("\x1b")));
    EXPECT_THAT(ending.out, StartsWith("IMG_0001.jpg: "));
}

TEST_F(TerminalReporterTest, CtrlCStopsTheRunAfterTheFileInHand) {
    scene.addPhotos(300);
    TerminalProgram program(scene.sorting(), 80);
    ASSERT_TRUE(program.waitFor("IMG_0001.jpg"));
    program.type(ctrlC);
    const Ending ending = program.finish();
    EXPECT_EQ(ending.code, 3);
    EXPECT_THAT(drawingsIn(ending.out).back(), HasSubstr("stopping…"));
    EXPECT_THAT(screenOf(ending.out), ::testing::Contains(HasSubstr("/300 — results saved")));
    EXPECT_EQ(SortScene::filesIn(scene.in).size(), 300U);
}

TEST_F(TerminalReporterTest, OriginalsAreTrashedOnlyAfterAYes) {
    struct Row {
        const char* typed;
        int code;
        bool isTrashed;
    };
    const std::string question = "Move 1 original to the Trash, each once its copy is written?";
    for (const Row row :
         {Row{"\n", 3, false}, Row{"n\n", 3, false}, Row{ctrlD, 3, false}, Row{"y\n", 0, true}}) {
        scene.addPhoto("asked-on-terminal.jpg");
        TerminalProgram program(scene.sorting({"--trash-originals"}), 80);
        ASSERT_TRUE(program.waitFor(question + " [y/N] "));
        program.type(row.typed);
        const Ending ending = program.finish();
        EXPECT_EQ(ending.code, row.code);
        EXPECT_EQ(fs::exists(scene.in / "asked-on-terminal.jpg"), !row.isTrashed);
        EXPECT_EQ(fs::exists(privateTrash() / "asked-on-terminal.jpg"), row.isTrashed);
        EXPECT_EQ(fs::exists(scene.out), row.isTrashed);
        EXPECT_EQ(ending.out.find("Nothing was done.") == std::string::npos, row.isTrashed);
    }
}

TEST_F(TerminalReporterTest, ADryRunAsksNothing) {
    scene.addPhotos(1);
    const Ending ending =
        TerminalProgram(scene.sorting({"--trash-originals", "--dry-run"}), 80).finish();
    EXPECT_EQ(ending.code, 0);
    EXPECT_THAT(ending.out, Not(HasSubstr("[y/N]")));
}

}  // namespace ornivo::cli
