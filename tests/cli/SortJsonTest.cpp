#include <gmock/gmock.h>

#include <csignal>
#include <nlohmann/json.hpp>

#include "cli/SortScene.h"
#include "support/Pictures.h"

namespace ornivo::cli {

namespace fs = std::filesystem;
using namespace ornivo::testing;
using nlohmann::json;

namespace {

std::vector<json> objectsIn(const std::string& out) {
    std::vector<json> objects;
    for (const auto& line : linesOf(out)) objects.push_back(json::parse(line));
    return objects;
}

std::vector<std::string> eventsOf(const std::vector<json>& objects) {
    std::vector<std::string> events;
    for (const auto& object : objects) events.push_back(object["event"]);
    return events;
}

}  // namespace

class SortJsonTest : public ::testing::Test {
protected:
    SortScene scene;
};

TEST_F(SortJsonTest, EachEventIsALineAndTheTotalsAreTheLast) {
    scene.addPhoto("b.jpg");
    writeDng(scene.in / "b.dng", filled(240, 240));
    writeFile(scene.in / "broken.jpg", "no picture");
    const Ending ending = Program::run(scene.sorting({"--json"}));
    EXPECT_EQ(ending.code, 1);
    EXPECT_EQ(ending.err, "");
    const auto objects = objectsIn(ending.out);
    EXPECT_THAT(eventsOf(objects),
                ::testing::ElementsAre("scan", "progress", "prediction", "progress", "progress",
                                       "prediction", "sortFinished"));
    EXPECT_EQ(objects[0]["files"], 3);
    EXPECT_EQ(objects[1]["path"], (scene.in / "b.dng").string());
    EXPECT_EQ(objects[2]["index"], 0);
    EXPECT_EQ(objects[2]["candidates"].size(), 3U);
    EXPECT_EQ(objects[5]["candidates"], nullptr);
    EXPECT_EQ(objects[5]["notice"], "The file couldn't be read.");
    const json& totals = objects.back();
    EXPECT_EQ(totals["stopReason"], "completed");
    EXPECT_EQ(totals["result"]["processed"], 3);
    EXPECT_EQ(totals["result"]["unidentified"], 1);
    EXPECT_EQ(totals["result"]["errors"], 1);
}

TEST_F(SortJsonTest, AnEmptyScanHasTotalsToo) {
    fs::create_directories(scene.in);
    const Ending ending = Program::run(scene.sorting({"--json"}));
    EXPECT_EQ(ending.code, 0);
    const auto objects = objectsIn(ending.out);
    EXPECT_THAT(eventsOf(objects), ::testing::ElementsAre("scan", "sortFinished"));
    EXPECT_EQ(objects.back()["result"]["total"], 0);
    EXPECT_FALSE(fs::exists(scene.out));
}

TEST_F(SortJsonTest, ADryRunTellsItsPlanBeforeTheTotals) {
    scene.addPhotos(1);
    const auto objects = objectsIn(Program::run(scene.sorting({"--json", "--dry-run"})).out);
    EXPECT_THAT(eventsOf(objects), ::testing::ElementsAre("scan", "progress", "prediction", "plan",
                                                          "plan", "plan", "sortFinished"));
    EXPECT_EQ(objects[3]["action"], "copy");
    EXPECT_EQ(objects[3]["from"], (scene.in / "IMG_0001.jpg").string());
    EXPECT_EQ(objects[3]["to"], (scene.out / "_Uncertain/IMG_0001.jpg").string());
}

TEST_F(SortJsonTest, AnyFileNameComesAsValidUtf8) {
    for (const std::string name : {"caf\xe9.jpg", "line\nfeed.jpg", "quote\".jpg", "\x1b[2J.jpg"}) {
        scene.addPhoto(name);
    }
    const auto objects = objectsIn(Program::run(scene.sorting({"--json"})).out);
    std::set<std::string> names;
    for (const auto& object : objects) names.insert(object.value("fileName", ""));
    EXPECT_TRUE(names.contains("caf\uFFFD.jpg"));
    EXPECT_TRUE(names.contains("line\nfeed.jpg"));
    EXPECT_TRUE(names.contains("quote\".jpg"));
    EXPECT_TRUE(names.contains("\x1b[2J.jpg"));
}

TEST_F(SortJsonTest, ARunThatIsStoppedStillHasItsTotals) {
    scene.addPhotos(300);
    Program program(scene.sorting({"--json"}));
    ASSERT_TRUE(program.waitForOutput("\"prediction\""));
    program.send(SIGINT);
    const Ending ending = program.finish();
    EXPECT_EQ(ending.code, 3);
    const json totals = objectsIn(ending.out).back();
    EXPECT_EQ(totals["stopReason"], "userCancelled");
    EXPECT_EQ(totals["result"]["stopped"], true);
    EXPECT_LT(totals["result"]["processed"], 300);
}

}  // namespace ornivo::cli
