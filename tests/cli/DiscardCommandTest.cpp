#include "cli/DiscardCommand.h"

#include <gtest/gtest.h>

#include "cli/SortScene.h"
#include "engine/PausedRun.h"

namespace ornivo::cli {

namespace fs = std::filesystem;
using namespace ornivo::testing;

class DiscardCommandTest : public ::testing::Test {
protected:
    DiscardCommandTest() { writeFile(scene.out / "Hoopoe/a.jpg", "x"); }

    Ending discard() const { return Program::run({"discard", scene.out.string()}); }

    SortScene scene;
    const fs::path record = PausedRun::manifestURL(scene.out);
};

TEST_F(DiscardCommandTest, OnlyTheRecordGoes) {
    PausedRun run;
    run.destination = scene.out.string();
    run.totalPhotos = 20;
    run.stoppedAtIndex = 8;
    ASSERT_TRUE(run.write(scene.out, *Files::system()));
    const Ending ending = discard();
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.err, "");
    EXPECT_EQ(ending.out,
              "Discarded: 12 photos left to sort into out.\n"
              "The files already filed stay where they are.\n");
    EXPECT_EQ(SortScene::filesIn(scene.out), (std::set<std::string>{"Hoopoe/a.jpg"}));
}

TEST_F(DiscardCommandTest, WithoutARecordThereIsNothingToDiscard) {
    const Ending ending = discard();
    EXPECT_EQ(ending.code, 1);
    EXPECT_EQ(ending.out, "");
    EXPECT_EQ(ending.err, "There is no paused run in \"" + scene.out.string() + "\".\n");
}

TEST_F(DiscardCommandTest, ARecordThatCanNotBeReadGoesToo) {
    writeFile(record, "{}");
    const Ending ending = discard();
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.out,
              "Discarded a record that couldn't be read.\n"
              "The files already filed stay where they are.\n");
    EXPECT_FALSE(fs::exists(record));
}

TEST_F(DiscardCommandTest, ARecordThatStaysIsAFailure) {
    fs::create_directories(record / "a folder in its place");
    const Ending ending = discard();
    EXPECT_EQ(ending.code, 1);
    EXPECT_EQ(ending.out, "");
    EXPECT_EQ(ending.err, "\"" + record.string() + "\" couldn't be removed.\n");
}

TEST_F(DiscardCommandTest, AFolderThatIsNotThereIsExitCode2) {
    fs::remove_all(scene.out);
    const Ending ending = discard();
    EXPECT_EQ(ending.code, 2);
    EXPECT_EQ(ending.err, "There is no folder \"" + scene.out.string() + "\".\n");
}

}  // namespace ornivo::cli
