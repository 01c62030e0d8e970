#include "cli/FindCommand.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <iomanip>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/ResumeCommandLine.h"
#include "cli/SortScene.h"
#include "cli/TargetSpecies.h"
#include "identification/BirdClassifierLabels.h"
#include "support/PrivateTrash.h"
#include "support/SmallDisk.h"

namespace ornivo::cli {

namespace fs = std::filesystem;
using namespace ornivo::testing;
using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;

class FindCommandTest : public ::testing::Test {
protected:
    Arguments finding(const Arguments& species, const Arguments& more = {}) const {
        Arguments all{"find"};
        all.insert(all.end(), species.begin(), species.end());
        all.insert(all.end(), {"--in", scene.in.string(), "--to", scene.out.string()});
        all.insert(all.end(), more.begin(), more.end());
        return all;
    }

    /// What the classifier sees in each photograph, by its file's name.
    std::map<std::string, json> seen() const {
        std::map<std::string, json> birds;
        const auto out = Program::run(finding({"dodo"}, {"--level", "possible", "--json"})).out;
        for (const auto& line : linesOf(out)) {
            const auto event = json::parse(line);
            if (event["event"] != "prediction") continue;
            birds[fs::path(event["path"].get<std::string>()).filename()] = event;
        }
        return birds;
    }

    SortScene scene;
};

TEST_F(FindCommandTest, OnlyTheShotsOfTheChosenSpeciesAreCopiedOut) {
    if (!scene.addBirds(12)) GTEST_SKIP() << "no sample photographs";
    const auto birds = seen();
    ASSERT_TRUE(SortScene::filesIn(scene.out).empty()) << "a dodo was found";
    std::string chosen;
    for (const auto& [name, event] : birds) {
        if (event["notice"].is_null()) chosen = event["candidates"][0]["commonName"];
    }
    ASSERT_NE(chosen, "");
    std::set<std::string> expected;
    for (const auto& [name, event] : birds) {
        const bool isCalled = event["notice"].is_null();
        if (isCalled && event["candidates"][0]["commonName"] == chosen) {
            expected.insert(chosen + "/" + name);
        }
    }

    std::string typed = chosen;
    std::ranges::transform(typed, typed.begin(), [](char each) {
        return each == ' ' ? '-' : static_cast<char>(std::toupper(each));
    });
    const Ending ending = Program::run(finding({typed}, {"--level", "possible"}));
    EXPECT_EQ(ending.code, 0);
    EXPECT_THAT(ending.err, ::testing::StartsWith("✓ " + chosen + " ("));
    EXPECT_EQ(SortScene::filesIn(scene.out), expected);
    EXPECT_EQ(SortScene::filesIn(scene.in).size(), 12U);
    const std::string count = std::to_string(expected.size());
    EXPECT_THAT(ending.out, HasSubstr("% → " + chosen + "/\n"));
    EXPECT_THAT(ending.out,
                HasSubstr("✓ " + count + " photos matched and copied\n~ " +
                          std::to_string(12 - expected.size()) + " scanned, no match\n"));
}

TEST_F(FindCommandTest, ASpeciesThatCanNotBeRecognisedIsWarnedOfAndTheRunGoesOn) {
    scene.addPhotos(2);
    const Ending ending = Program::run(finding({"Dodo", "hoo\x1bpoes"}));
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.err,
              "⚠ Dodo\n⚠ hoo\uFFFDpoes\n"
              "Dodo, hoo\uFFFDpoes are not among the " +
                  std::to_string(BirdClassifierLabels::speciesCount()) +
                  " species this build can recognise — a search for them will find nothing.\n");
    EXPECT_THAT(linesOf(ending.out),
                ElementsAre(MatchesRegex("IMG_0001.jpg: .* [0-9]+%, no confirmed call"),
                            MatchesRegex("IMG_0002.jpg: .* [0-9]+%, no confirmed call"),
                            "✓ 0 photos matched and copied", "~ 2 scanned, no match",
                            "2 photos had no confirmed call — accept probable calls?",
                            MatchesRegex("[0-9]+\\.[0-9]s")));
    EXPECT_TRUE(SortScene::filesIn(scene.out).empty());
}

TEST_F(FindCommandTest, AFileThatFailsIsToldAndMakesTheExitCode1) {
    writeFile(scene.in / "broken.jpg", "no picture");
    const Ending ending = Program::run(finding({"hoopoe"}));
    EXPECT_EQ(ending.code, 1);
    EXPECT_THAT(ending.out, HasSubstr("✗ broken.jpg: The file couldn't be read.\n"));
    EXPECT_THAT(ending.out, HasSubstr("✗ 1 errors\n"));
}

TEST_F(FindCommandTest, ASpeciesWithoutANameIsExitCode2) {
    scene.addPhotos(1);
    const Ending ending = Program::run(finding({"hoopoe", " "}));
    EXPECT_EQ(ending.code, 2);
    EXPECT_EQ(ending.err, "\" \" is no name of a bird.\n");
}

TEST_F(FindCommandTest, JsonTellsTheSpeciesTheMatchesAndTheTotals) {
    scene.addPhotos(1);
    const auto lines = linesOf(Program::run(finding({"Dodo"}, {"--json"})).out);
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(json::parse(lines[0])["species"],
              json::parse(R"([{"commonName":"Dodo","scientificName":"","known":false}])"));
    EXPECT_EQ(json::parse(lines[2])["match"], nullptr);
    const auto totals = json::parse(lines[3]);
    EXPECT_EQ(totals["event"], "findFinished");
    EXPECT_EQ(totals["stopReason"], "completed");
    EXPECT_EQ(totals["result"]["scanned"], 1);
    EXPECT_EQ(totals["result"]["matched"], 0);
}

TEST_F(FindCommandTest, AnEmptyScanHasTotalsOfASearchToo) {
    fs::create_directories(scene.in);
    const auto lines = linesOf(Program::run(finding({"Dodo"}, {"--json"})).out);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(json::parse(lines[1])["event"], "findFinished");
}

TEST_F(FindCommandTest, OnlyOriginalsOfWhatIsFoundGoToTheTrash) {
    if (!scene.addBirds(12)) GTEST_SKIP() << "no sample photographs";
    std::string chosen;
    for (const auto& [name, event] : seen()) {
        if (event["notice"].is_null()) chosen = event["candidates"][0]["commonName"];
    }
    ASSERT_NE(chosen, "");
    const Arguments options{"--level", "possible", "--trash-originals"};
    const Ending refused = Program::run(finding({chosen}, options));
    EXPECT_EQ(refused.code, 2);
    EXPECT_EQ(SortScene::filesIn(scene.in).size(), 12U);

    TerminalProgram program(finding({chosen}, options), 80);
    ASSERT_TRUE(program.waitFor(
        "Move the originals of what is found to the Trash, each once its copy is written? [y/N] "));
    program.type("y\n");
    EXPECT_EQ(program.finish().code, 0);
    const auto found = SortScene::filesIn(scene.out / chosen);
    EXPECT_FALSE(found.empty());
    EXPECT_EQ(SortScene::filesIn(scene.in).size(), 12U - found.size());
    for (const auto& name : found) {
        EXPECT_FALSE(fs::exists(scene.in / name));
        EXPECT_TRUE(fs::exists(privateTrash() / name));
    }
}

TEST_F(FindCommandTest, AFullDiskStopsASearchThatItsSpeciesBringOnAgain) {
    const auto disk = SmallDisk::mount(16'000'000);
    if (!disk) GTEST_SKIP() << "nothing can be mounted here";
    if (!scene.addBirds(12)) GTEST_SKIP() << "no sample photographs";
    std::string name;
    std::string chosen;
    for (const auto& [file, event] : seen()) {
        if (!event["notice"].is_null()) continue;
        name = file;
        chosen = event["candidates"][0]["commonName"];
    }
    ASSERT_NE(chosen, "");
    const std::string bird = readFile(scene.in / name) + std::string(600'000, 'x');
    fs::remove_all(scene.in);
    for (int i = 1; i <= 4; ++i) {
        writeFile(scene.in / ("IMG_000" + std::to_string(i) + ".jpg"), bird);
    }
    const auto room = static_cast<std::size_t>(disk->freeBytes());
    writeFile(*disk / "ballast", std::string(room - 2 * bird.size() - bird.size() / 2, 'x'));

    const fs::path destination = *disk / "my birds";
    const Ending full = Program::run({"find", chosen, "--in", scene.in.string(), "--to",
                                      destination.string(), "--level", "possible"});
    EXPECT_EQ(full.code, 4);
    const std::string words =
        " resume " + shellWord(destination.string()) + " --species " + shellWord(chosen);
    EXPECT_THAT(full.out, HasSubstr("To go on then: ornivo-cli" + words + "\n"));
    EXPECT_EQ(Program::run({"resume", destination.string()}).code, 2) << "without its species";

    fs::remove(*disk / "ballast");
    const Ending rest = Program::run({"-c", builtProgram() + words}, {}, "/bin/sh");
    EXPECT_EQ(rest.code, 0);
    EXPECT_THAT(rest.out, HasSubstr("✓ 2 photos matched and copied\n"));
    EXPECT_THAT(rest.out, HasSubstr("Before that: 2 photos processed\n"));
    EXPECT_EQ(SortScene::filesIn(destination),
              (std::set<std::string>{chosen + "/IMG_0001.jpg", chosen + "/IMG_0002.jpg",
                                     chosen + "/IMG_0003.jpg", chosen + "/IMG_0004.jpg"}));
}

/// Empty where the line doesn't hold both.
std::string between(const std::string& line, const std::string& start, const std::string& end) {
    const auto found = line.find(start);
    if (found == std::string::npos) return {};
    const auto first = found + start.size();
    const auto last = line.find(end, first);
    return last == std::string::npos ? "" : line.substr(first, last - first);
}

/// The birds that a text looks for in its examples of commands.
std::vector<std::string> birdsInExamples(const std::string& text) {
    std::vector<std::string> birds;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        for (const char* const command : {"ornivo-cli find ", "./run find "}) {
            const std::string names = between(line, command, " --in");
            if (names.starts_with('[')) continue;
            std::istringstream words(names);
            for (std::string bird; words >> std::quoted(bird);) birds.push_back(bird);
        }
        const std::string bird = between(line, "--species \"", "\"");
        if (!bird.empty()) birds.push_back(bird);
    }
    return birds;
}

TEST(FindExamples, NameOnlyBirdsThatAreKnown) {
    const auto help = [](const Arguments& arguments) { return Program::run(arguments).out; };
    EXPECT_EQ(birdsInExamples(help({"find", "--help"})),
              (std::vector<std::string>{"Bald Eagle", "osprey", "Common Hoopoe", "upupa epops"}));
    for (const std::string& text :
         {help({"--help"}), help({"find", "--help"}), help({"resume", "--help"}),
          readFile(fs::path(ORNIVO_SOURCE_DIR) / "README.md")}) {
        const auto birds = birdsInExamples(text);
        EXPECT_FALSE(birds.empty()) << text;
        for (const std::string& bird : birds) {
            EXPECT_EQ(unrecognisedMessage(targetSpecies({bird})), "") << bird;
        }
    }
}

}  // namespace ornivo::cli
