#include "cli/QualityCommand.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/SortScene.h"
#include "support/Pictures.h"

namespace ornivo::cli {

using namespace ornivo::testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;

class QualityCommandTest : public ::testing::Test {
protected:
    std::string write(const std::string& name, Colour colour, const Exif& exif = {}) const {
        return writeJpeg(scene.in / name, 240, 240, {.exif = exif, .colour = colour}).string();
    }

    /// Sharp everywhere, half dark and half light, but neither black nor white.
    std::string writeSharp(const std::string& name) const {
        const auto chequered = painted(240, 240, [](int x, int y) {
            return (x / 4 + y / 4) % 2 == 0 ? Colour{40, 40, 40} : Colour{210, 210, 210};
        });
        return writePng(scene.in / name, chequered).string();
    }

    SortScene scene;
};

TEST_F(QualityCommandTest, EachFileIsFollowedByItsRemarksAndMeasures) {
    const std::string white = write("white.jpg", {255, 255, 255}, {.iso = 6400});
    const std::string black = write("black.jpg", {0, 0, 0});
    const Ending ending = Program::run({"quality", white, black});
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.err, "");
    EXPECT_THAT(
        linesOf(ending.out),
        ElementsAre(white, "  Very soft, High ISO, Overexposed, Clipped highlights",
                    "  sharpness 0.0000, mean luminance 1.00, clipped highlights 100.0%, clipped "
                    "shadows 0.0%, ISO 6400",
                    black, "  Very soft, Underexposed",
                    "  sharpness 0.0000, mean luminance 0.00, clipped highlights 0.0%, clipped "
                    "shadows 100.0%"));
}

TEST_F(QualityCommandTest, AFaultlessPhotographHasNothingToRemarkOn) {
    const std::string sharp = writeSharp("sharp.png");
    EXPECT_THAT(linesOf(Program::run({"quality", sharp}).out),
                ElementsAre(sharp, "  Nothing to remark on",
                            MatchesRegex("  sharpness 0\\.[0-9]{4}, mean luminance 0\\.49, clipped "
                                         "highlights 0\\.0%, clipped shadows 0\\.0%")));
}

TEST_F(QualityCommandTest, AFileThatFailsIsToldAndTheOthersGoOn) {
    const std::string broken = writeFile(scene.in / "broken.jpg", "no picture").string();
    const std::string missing = (scene.in / "none.jpg").string();
    const std::string clip = writeFile(scene.in / "clip.MOV", "no picture").string();
    const std::string photo = write("a.jpg", {});
    const Ending ending =
        Program::run({"quality", broken, missing, scene.in.string(), clip, photo});
    EXPECT_EQ(ending.code, 1);
    const auto lines = linesOf(ending.out);
    ASSERT_EQ(lines.size(), 7U) << ending.out;
    EXPECT_EQ(lines[0], "✗ " + broken + ": The file couldn't be read.");
    EXPECT_EQ(lines[1], "✗ " + missing + ": There is no such file.");
    EXPECT_EQ(lines[2], "✗ " + scene.in.string() + ": It is not an ordinary file.");
    EXPECT_EQ(lines[3], "✗ " + clip + ": It is a clip; only photographs are measured.");
    EXPECT_EQ(lines[4], photo);
}

TEST_F(QualityCommandTest, JsonIsOneObjectAFileInTheirOrder) {
    const std::string white = write("white.jpg", {255, 255, 255}, {.iso = 200});
    const Ending ending = Program::run({"quality", "--json", white, "none.jpg"});
    EXPECT_EQ(ending.code, 1);
    const auto lines = linesOf(ending.out);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(nlohmann::json::parse(lines[0]),
              (nlohmann::json{{"path", white},
                              {"sharpness", 0.0},
                              {"meanLuminance", 1.0},
                              {"clippedHighlights", 1.0},
                              {"clippedShadows", 0.0},
                              {"iso", 200},
                              {"tags", {"verySoft", "overexposed", "clipped"}}}));
    EXPECT_EQ(nlohmann::json::parse(lines[1]),
              (nlohmann::json{{"path", "none.jpg"}, {"error", "There is no such file."}}));
}

TEST_F(QualityCommandTest, JsonWithoutAnIsoSaysNull) {
    const auto json =
        nlohmann::json::parse(Program::run({"quality", "--json", write("a.jpg", {})}).out);
    EXPECT_TRUE(json.at("iso").is_null());
}

TEST_F(QualityCommandTest, NamesAreTakenByteForByteAndShownClean) {
    EXPECT_EQ(Program::run({"quality", "[a,b]", "a\x1b[2J"}).out,
              "✗ [a,b]: There is no such file.\n"
              "✗ a\uFFFD[2J: There is no such file.\n");
}

TEST_F(QualityCommandTest, WithoutAFileItIsExitCode2) {
    EXPECT_EQ(Program::run({"quality"}).code, 2);
}

TEST_F(QualityCommandTest, TheHelpTeachesByExamplesThatFitATerminal) {
    const std::string help = Program::run({"quality", "--help"}).out;
    EXPECT_THAT(help, HasSubstr("\nExamples:\n  ornivo-cli quality "));
    for (const auto& line : linesOf(help)) EXPECT_LE(line.size(), 80U) << line;
}

}  // namespace ornivo::cli
