#include "cli/FileDecisionsCommand.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <nlohmann/json.hpp>
#include <thread>

#include "cli/ResumeCommandLine.h"
#include "cli/SortScene.h"

namespace ornivo::cli {

namespace fs = std::filesystem;
using namespace ornivo::testing;
using ::testing::HasSubstr;

namespace {

const std::string nothingToFile =
    "Nothing to file — the clipboard holds no decisions. Press Copy decisions in review.html "
    "first.\n";

}  // namespace

class FileDecisionsCommandTest : public ::testing::Test {
protected:
    FileDecisionsCommandTest() {
        for (const char* const name : {"a.jpg", "a.cr2", "a.xmp", "b.jpg"}) {
            writeFile(scene.out / "_Uncertain" / name, name);
        }
    }

    fs::path paste(const std::string& text) const { return writeFile(scene.in / "pasted", text); }

    /// Files what a file holds.
    Ending fileFrom(const fs::path& file, const Arguments& more = {}) const {
        Arguments words{"file-decisions", scene.out.string(), file.string()};
        words.insert(words.end(), more.begin(), more.end());
        return Program::run(words);
    }

    /// The same by way of the standard input.
    Ending pipeFrom(const fs::path& file, const std::string& words = "") const {
        return Program::run(
            {"-c", builtProgram() + " file-decisions " + shellWord(scene.out.string()) + words +
                       " < " + shellWord(file.string())},
            {}, "/bin/sh");
    }

    std::set<std::string> filed() const { return SortScene::filesIn(scene.out); }

    SortScene scene;
};

TEST_F(FileDecisionsCommandTest, DecidedPhotographsAreFiledWithAllThatIsTheirs) {
    const Ending ending = fileFrom(paste("filename,species\n\"a.jpg\",\"Wryneck\"\n"));
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.err, "");
    EXPECT_EQ(ending.out, "Filed 1 photo into 1 folder.\n");
    EXPECT_EQ(filed(), (std::set<std::string>{"Wryneck/a.jpg", "Wryneck/a.cr2", "Wryneck/a.xmp",
                                              "_Uncertain/b.jpg"}));
}

TEST_F(FileDecisionsCommandTest, TheTextMayComeThroughTheStandardInput) {
    for (const char* const words : {"", " -"}) {
        const Ending ending = pipeFrom(paste("b.jpg,Hoopoe"), words);
        EXPECT_EQ(ending.code, 0);
        EXPECT_EQ(ending.out, "Filed 1 photo into 1 folder.\n");
        EXPECT_EQ(readFile(scene.out / "Hoopoe/b.jpg"), "b.jpg");
        fs::rename(scene.out / "Hoopoe/b.jpg", scene.out / "_Uncertain/b.jpg");
    }
}

TEST_F(FileDecisionsCommandTest, ThePathMayBeALinkToTheList) {
    fs::create_symlink(paste("b.jpg,Hoopoe"), scene.in / "link");
    const Ending ending = fileFrom(scene.in / "link");
    EXPECT_EQ(ending.err, "");
    EXPECT_EQ(ending.out, "Filed 1 photo into 1 folder.\n");
}

TEST_F(FileDecisionsCommandTest, ThePathMayBeAPipe) {
    const fs::path pipe = scene.in / "pipe";
    fs::create_directories(scene.in);
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const std::jthread writer([&] { writeFile(pipe, "b.jpg,Hoopoe"); });
    const Ending ending = fileFrom(pipe);
    EXPECT_EQ(ending.err, "");
    EXPECT_EQ(ending.out, "Filed 1 photo into 1 folder.\n");
}

TEST_F(FileDecisionsCommandTest, ThePathMayBeThatOfTheStandardInput) {
    const Ending ending = pipeFrom(paste("b.jpg,Hoopoe"), " /dev/stdin");
    EXPECT_EQ(ending.err, "");
    EXPECT_EQ(ending.out, "Filed 1 photo into 1 folder.\n");
}

TEST_F(FileDecisionsCommandTest, AByteOrderMarkIsNoPartOfTheFirstName) {
    const Ending ending =
        fileFrom(paste("\xEF\xBB\xBF"
                       "b.jpg,Hoopoe\r\na.jpg,Wryneck\r\n"));
    EXPECT_EQ(ending.out, "Filed 2 photos into 2 folders.\n");
    EXPECT_EQ(ending.code, 0);
}

TEST_F(FileDecisionsCommandTest, WhatWasNotFoundOrNotMovedIsNamedSafely) {
    writeFile(scene.out / "Taken", "a file");
    const Ending ending =
        fileFrom(paste("a.jpg,Wryneck\nnone\x1b[2J.jpg,Hoopoe\nb.jpg,Taken\nb.jpg,..\n"));
    EXPECT_EQ(ending.code, 1);
    EXPECT_EQ(ending.out,
              "Filed 1 photo into 1 folder. "
              "1 were not in _Uncertain — already filed, or renamed. 2 could not be moved.\n"
              "  none\uFFFD[2J.jpg: not in _Uncertain\n"
              "  b.jpg: could not be moved\n"
              "  b.jpg: could not be moved\n");
    EXPECT_TRUE(fs::exists(scene.out / "_Uncertain/b.jpg"));
}

TEST_F(FileDecisionsCommandTest, ATextWithoutDecisionsIsNothingToFile) {
    for (const char* const text : {"", "\n", "filename,species\n", "no decision"}) {
        for (const Ending& ending : {fileFrom(paste(text)), pipeFrom(paste(text))}) {
            EXPECT_EQ(ending.code, 1);
            EXPECT_EQ(ending.out, nothingToFile);
        }
    }
    EXPECT_EQ(filed().size(), 4U);
}

TEST_F(FileDecisionsCommandTest, TenMegabytesOfDecisionsAreFine) {
    std::string text = "filename,species\n";
    while (text.size() < 10'000'000) text += "no-photograph-of-this-name.jpg,Wryneck\n";
    text += "b.jpg,Hoopoe\n";
    const Ending ending = pipeFrom(paste(text), " --json");
    EXPECT_EQ(ending.code, 1);
    const auto json = nlohmann::json::parse(ending.out);
    EXPECT_EQ(json["moved"], 1);
    EXPECT_GT(json["notFound"].size(), 250'000U);
    EXPECT_TRUE(fs::exists(scene.out / "Hoopoe/b.jpg"));
}

TEST_F(FileDecisionsCommandTest, JsonIsOneObject) {
    using nlohmann::json;
    const Ending ending =
        fileFrom(paste("a.jpg,Wryneck\nx\xff,Hoopoe\nb.jpg,Hoopoe\nb.jpg,...\n"), {"--json"});
    EXPECT_EQ(ending.code, 1);
    EXPECT_EQ(ending.out.find('\n'), ending.out.size() - 1);
    EXPECT_EQ(json::parse(ending.out), (json{{"decisions", 4},
                                             {"moved", 2},
                                             {"notFound", {"x\uFFFD"}},
                                             {"failed", {"b.jpg"}},
                                             {"folders", {"Hoopoe", "Wryneck"}}}));
    const Ending nothing = fileFrom(paste(""), {"--json"});
    EXPECT_EQ(nothing.code, 1);
    EXPECT_EQ(nothing.out,
              "{\"decisions\":0,\"moved\":0,\"notFound\":[],\"failed\":[],\"folders\":[]}\n");
}

TEST_F(FileDecisionsCommandTest, OnATerminalItIsSaidWhatIsExpected) {
    constexpr const char* ctrlD = "\x04";
    TerminalProgram program({"file-decisions", scene.out.string()}, 80);
    ASSERT_TRUE(program.waitFor(
        "Press Copy decisions in _Uncertain/review.html, paste here, then press Enter and "
        "Ctrl-D."));
    program.type(std::string("b.jpg,Hoopoe\n") + ctrlD);
    const Ending ending = program.finish();
    EXPECT_EQ(ending.code, 0);
    EXPECT_THAT(ending.out, HasSubstr("Filed 1 photo into 1 folder."));
    EXPECT_TRUE(fs::exists(scene.out / "Hoopoe/b.jpg"));
}

TEST_F(FileDecisionsCommandTest, AFileOrAFolderThatCanNotBeReadIsExitCode2) {
    for (const auto& [file, reason] : {std::pair(scene.in / "none", "No such file or directory"),
                                       std::pair(scene.out, "Is a directory")}) {
        const Ending ending = fileFrom(file);
        EXPECT_EQ(ending.code, 2);
        EXPECT_EQ(ending.err,
                  "No decisions could be read from " + file.string() + ": " + reason + ".\n");
    }
    const Ending noFolder =
        Program::run({"file-decisions", (scene.out / "none").string(), paste("b.jpg,a").string()});
    EXPECT_EQ(noFolder.code, 2);
    EXPECT_EQ(noFolder.err, "There is no folder \"" + (scene.out / "none").string() + "\".\n");
}

}  // namespace ornivo::cli
