#include "cli/IdentifyCommand.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/Numbers.h"
#include "cli/SortScene.h"

namespace ornivo::cli {

namespace fs = std::filesystem;
using namespace ornivo::testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;

class IdentifyCommandTest : public ::testing::Test {
protected:
    SortScene scene;
};

TEST_F(IdentifyCommandTest, EachFileIsFollowedByItsCandidates) {
    const std::string photo = scene.addPhoto("a.jpg").string();
    const Ending ending = Program::run({"identify", photo});
    EXPECT_EQ(ending.code, 0);
    const std::string candidate = " +[0-9]+%  [A-Z].* \\([A-Z][a-z]+ [a-z ]+\\)";
    EXPECT_THAT(linesOf(ending.out), ElementsAre(photo, MatchesRegex(candidate),
                                                 MatchesRegex(candidate), MatchesRegex(candidate)));
}

TEST_F(IdentifyCommandTest, AFileThatFailsIsToldAndTheOthersGoOn) {
    const std::string broken = writeFile(scene.in / "broken.jpg", "no picture").string();
    const std::string photo = scene.addPhoto("a.jpg").string();
    const std::string missing = (scene.in / "none.jpg").string();
    const Ending ending = Program::run({"identify", broken, missing, scene.in.string(), photo});
    EXPECT_EQ(ending.code, 1);
    const auto lines = linesOf(ending.out);
    ASSERT_EQ(lines.size(), 7U) << ending.out;
    EXPECT_EQ(lines[0], "✗ " + broken + ": The file couldn't be read.");
    EXPECT_EQ(lines[1], "✗ " + missing + ": There is no such file.");
    EXPECT_EQ(lines[2], "✗ " + scene.in.string() + ": It is not an ordinary file.");
    EXPECT_EQ(lines[3], photo);
}

TEST_F(IdentifyCommandTest, JsonIsOneObjectAFileInTheirOrder) {
    const std::string photo = scene.addPhoto("caf\xe9\n.jpg").string();
    const Ending ending = Program::run({"identify", "--json", photo, "none.jpg"});
    EXPECT_EQ(ending.code, 1);
    const auto lines = linesOf(ending.out);
    ASSERT_EQ(lines.size(), 2U);
    const auto first = nlohmann::json::parse(lines[0]);
    EXPECT_THAT(first["path"].get<std::string>(), HasSubstr("caf\uFFFD\n.jpg"));
    ASSERT_EQ(first["candidates"].size(), 3U);
    EXPECT_GE(first["candidates"][0]["confidence"], first["candidates"][1]["confidence"]);
    EXPECT_EQ(nlohmann::json::parse(lines[1]),
              (nlohmann::json{{"path", "none.jpg"}, {"error", "There is no such file."}}));
}

TEST_F(IdentifyCommandTest, NamesAreTakenByteForByte) {
    for (const std::string name : {"[a].jpg", "[a]", "a,b.jpg", "{}"}) {
        const std::string path = (scene.in / name).string();
        EXPECT_EQ(Program::run({"identify", path}).out, "✗ " + path + ": There is no such file.\n");
    }
    const Ending odd = Program::run({"identify", "[a,b]", "", "{}", "--", "--json"});
    EXPECT_EQ(odd.out,
              "✗ [a,b]: There is no such file.\n"
              "✗ : There is no such file.\n"
              "✗ {}: There is no such file.\n"
              "✗ --json: There is no such file.\n");
}

TEST_F(IdentifyCommandTest, WrongArgumentsAreExitCode2) {
    EXPECT_EQ(Program::run({"identify"}).code, 2);
    const Ending ending = Program::run({"identify", "a.jpg", "--at", "north"});
    EXPECT_EQ(ending.code, 2);
    EXPECT_EQ(ending.err,
              "--at takes a latitude and a longitude in degrees, as in 51.5,-0.12; \"north\" is "
              "not that.\n");
}

TEST_F(IdentifyCommandTest, NothingIsWrittenBesideTheFiles) {
    const fs::path photo = scene.addPhoto("a.jpg");
    Program::run({"identify", photo.string()});
    EXPECT_EQ(SortScene::filesIn(scene.in), std::set<std::string>{"a.jpg"});
}

TEST_F(IdentifyCommandTest, AnExplanationTellsWhatPicturePlaceAndMonthContribute) {
    const std::string photo = scene.addPhoto("a.jpg").string();
    const Ending ending = Program::run({"identify", "--explain", "--at", "56,10", photo});
    EXPECT_EQ(ending.code, 0);
    const std::string candidate =
        " +[0-9]+%  [A-Z].* \\([A-Z][a-z]+ [a-z ]+\\): "
        "classifier [0-9]+%, range × (1|0.15), season × (1|0.35)";
    EXPECT_THAT(
        linesOf(ending.out),
        ElementsAre(photo, MatchesRegex(candidate), MatchesRegex(candidate),
                    MatchesRegex(candidate),
                    MatchesRegex("  bird seen with [0-9]+%: [0-9]+% of the square's side, its "
                                 "centre [0-9]+% from the left and [0-9]+% from the top")));
}

TEST_F(IdentifyCommandTest, AnExplanationTellsWhereTheBirdIs) {
    const std::string photo = scene.addPhoto("a.jpg").string();
    const auto told =
        nlohmann::json::parse(Program::run({"identify", "--explain", "--json", photo}).out);
    for (const char* const field : {"centreX", "centreY", "side", "score"}) {
        const auto value = told.at("birdBox").at(field).get<double>();
        EXPECT_GE(value, 0) << field;
        EXPECT_LE(value, 1) << field;
    }
    const auto plain = nlohmann::json::parse(Program::run({"identify", "--json", photo}).out);
    EXPECT_FALSE(plain.contains("birdBox"));
    const auto percent = [&](const char* field) {
        return percentage(told.at("birdBox").at(field).get<double>());
    };
    EXPECT_THAT(Program::run({"identify", "--explain", photo}).out,
                HasSubstr("  bird seen with " + percent("score") + ": " + percent("side") +
                          " of the square's side, its centre " + percent("centreX") +
                          " from the left and " + percent("centreY") + " from the top\n"));
}

TEST_F(IdentifyCommandTest, AnExplanationEndsInTheSameConfidencesAsThePlainAnswer) {
    const std::string photo = scene.addPhoto("a.jpg").string();
    const auto candidates = [&](const Arguments& more) {
        Arguments words{"identify", "--json", "--at", "56,10", photo};
        words.insert(words.end(), more.begin(), more.end());
        return nlohmann::json::parse(Program::run(words).out).at("candidates");
    };
    const auto plain = candidates({});
    const auto explained = candidates({"--explain"});
    ASSERT_EQ(explained.size(), plain.size());
    for (std::size_t i = 0; i < plain.size(); ++i) {
        EXPECT_EQ(explained[i].at("label"), plain[i].at("label"));
        EXPECT_EQ(explained[i].at("confidence"), plain[i].at("confidence"));
    }
    const auto ratio = [&](std::size_t i) {
        return explained[i].at("classifierShare").get<double>() *
               explained[i].at("rangeFactor").get<double>() *
               explained[i].at("seasonFactor").get<double>() /
               explained[i].at("confidence").get<double>();
    };
    EXPECT_NEAR(ratio(0), ratio(1), 1e-9);
}

}  // namespace ornivo::cli
