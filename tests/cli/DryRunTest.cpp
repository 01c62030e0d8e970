#include <gmock/gmock.h>

#include <map>
#include <nlohmann/json.hpp>

#include "cli/SortScene.h"
#include "support/Pictures.h"
#include "support/PrivateTrash.h"

namespace ornivo::cli {

namespace fs = std::filesystem;
using namespace ornivo::testing;
using ::testing::HasSubstr;

namespace {

/// Every file below a folder with its bytes.
std::map<std::string, std::string> contentsOf(const fs::path& folder) {
    std::map<std::string, std::string> contents;
    for (const auto& file : SortScene::filesIn(folder)) contents[file] = readFile(folder / file);
    return contents;
}

using Paths = std::set<std::string>;

/// What a dry run with these arguments says: for each kind of step where things would go or,
/// without a goal, what would be taken.
std::map<std::string, Paths> foretold(Arguments arguments) {
    arguments.insert(arguments.end(), {"--dry-run", "--json"});
    std::map<std::string, Paths> paths;
    for (const auto& line : linesOf(Program::run(arguments).out)) {
        const auto json = nlohmann::json::parse(line);
        if (json["event"] != "plan") continue;
        paths[json["action"]].insert(json.contains("to") ? json["to"] : json["from"]);
    }
    return paths;
}

}  // namespace

/// A scene with all that makes names collide and files travel together.
class DryRunTest : public ::testing::Test {
protected:
    DryRunTest() {
        scene.addPhotos(3);
        scene.addPhoto("again/IMG_0001.jpg");
        scene.addPhoto("again/IMG_0002.jpg");
        writeFile(scene.in / "IMG_0002.xmp", "companion");
        writeFile(scene.in / "IMG_0003.jpg.xmp", "companion");
        writeDng(scene.in / "IMG_0003.dng", filled(240, 240));
        writeFile(scene.in / "broken.jpg", "no picture");
        writeFile(scene.out / "_Uncertain/IMG_0001.jpg", "older");
        writeFile(scene.out / "_Uncertain/review.csv", "filename\n");
        writeFile(scene.out / "_Paused/resume.json", "{}");
        scene.addBirds(6);
    }

    SortScene scene;
};

TEST_F(DryRunTest, NothingIsWritten) {
    const auto inBefore = contentsOf(scene.in);
    const auto outBefore = contentsOf(scene.out);
    const Ending ending = Program::run(
        scene.sorting({"--dry-run", "--trash-originals", "--rename", "--date-subfolders"}));
    EXPECT_EQ(ending.code, 1) << "the broken file counts as it would in earnest";
    EXPECT_EQ(contentsOf(scene.in), inBefore);
    EXPECT_EQ(contentsOf(scene.out), outBefore);
    EXPECT_FALSE(fs::exists(privateTrash() / "IMG_0001.jpg"));
}

TEST_F(DryRunTest, AMissingDestinationStaysMissing) {
    fs::remove_all(scene.out);
    Program::run(scene.sorting({"--dry-run"}));
    EXPECT_FALSE(fs::exists(scene.out));
}

TEST_F(DryRunTest, EveryFileIsForetoldWhereTheRunThenPutsIt) {
    for (const Arguments& options :
         {Arguments{}, Arguments{"--rename"}, Arguments{"--rename", "--date-subfolders"},
          Arguments{"--level", "possible", "--trash-originals", "--yes"}}) {
        const Arguments sorting = scene.sorting(options);
        auto plan = foretold(sorting);
        const Paths copied = plan["copy"];
        const Paths written = plan["write"];
        const Paths removed = plan["remove"];
        const Paths trashed = plan["trash"];
        const auto before = SortScene::filesIn(scene.out);
        const auto sources = SortScene::filesIn(scene.in);

        Program::run(sorting);

        const auto after = SortScene::filesIn(scene.out);
        for (const auto& file : after) {
            const std::string path = (scene.out / file).string();
            EXPECT_EQ(copied.contains(path), !before.contains(file) && !written.contains(path))
                << path;
        }
        for (const auto& path : copied) EXPECT_TRUE(fs::exists(path)) << path;
        for (const auto& file : before) {
            EXPECT_EQ(after.contains(file), !removed.contains((scene.out / file).string())) << file;
        }
        for (const auto& file : sources) {
            const fs::path path = scene.in / file;
            EXPECT_EQ(fs::exists(path), !trashed.contains(path.string())) << file;
        }
    }
}

TEST_F(DryRunTest, ThePlanIsToldInWordsAndSoIsThatNothingWasDone) {
    const Ending ending = Program::run(scene.sorting({"--dry-run", "--trash-originals"}));
    EXPECT_THAT(ending.out, HasSubstr("files into " + scene.out.string() + ":\n"));
    EXPECT_THAT(ending.out, HasSubstr("  IMG_0001.jpg → _Uncertain/IMG_0001_1.jpg\n"));
    EXPECT_THAT(ending.out, HasSubstr("  again/IMG_0001.jpg → _Uncertain/IMG_0001_2.jpg\n"));
    EXPECT_THAT(ending.out, HasSubstr("  IMG_0002.xmp → _Uncertain/IMG_0002.xmp\n"));
    EXPECT_THAT(ending.out, HasSubstr(" files to the Trash once copied:\n"));
    EXPECT_THAT(ending.out, HasSubstr("Would remove:\n  _Paused/resume.json\n"));
    EXPECT_TRUE(ending.out.ends_with("\nDry run: nothing was written.\n")) << ending.out;
}

}  // namespace ornivo::cli
