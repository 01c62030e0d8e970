#include "cli/CommandLine.h"

#include <gmock/gmock.h>

#include "cli/SortScene.h"

namespace ornivo::cli {

using namespace ornivo::testing;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

TEST(CommandLine, WithoutArgumentsTheHelpIsShown) {
    const Ending bare = Program::run({});
    EXPECT_EQ(bare.code, 0);
    EXPECT_EQ(bare.err, "");
    EXPECT_EQ(bare.out, Program::run({"--help"}).out);
    EXPECT_THAT(bare.out, StartsWith("Sorts bird photographs into species folders"));
}

TEST(CommandLine, EveryHelpTeachesByExamplesThatFitATerminal) {
    for (const Arguments& words :
         {Arguments{"--help"}, Arguments{"sort", "--help"}, Arguments{"identify", "-h"},
          Arguments{"species", "--help"}, Arguments{"find", "--help"},
          Arguments{"resume", "--help"}, Arguments{"discard", "--help"},
          Arguments{"file-decisions", "--help"}}) {
        const Ending ending = Program::run(words);
        EXPECT_EQ(ending.code, 0);
        EXPECT_THAT(ending.out, HasSubstr("\nExamples:\n  ornivo-cli "));
        for (const auto& line : linesOf(ending.out)) EXPECT_LE(line.size(), 80U) << line;
    }
}

TEST(CommandLine, HelpOnACommandNamesItsOptions) {
    const std::string help = Program::run({"sort", "--help"}).out;
    for (const char* const option :
         {"SOURCE", "DESTINATION", "--level", "--confidence", "--at", "--rename", "--bursts",
          "--date-subfolders", "--trash-originals", "--dry-run", "--json", "--yes"}) {
        EXPECT_THAT(help, HasSubstr(std::string("\n  ") + option));
    }
}

TEST(CommandLine, TheVersionIsToldOnOneLine) {
    const Ending ending = Program::run({"--version"});
    EXPECT_EQ(ending.code, 0);
    EXPECT_THAT(ending.out, MatchesRegex("ornivo-cli [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(CommandLine, WhatIsNoCommandIsExitCode2WithAHint) {
    struct Row {
        Arguments arguments;
        std::string sentence;
    };
    for (const Row& row : {
             Row{{"sotr"},
                 "The following argument was not expected: sotr. "
                 "Try: ornivo-cli --help\n"},
             Row{{"--unknown"},
                 "The following argument was not expected: --unknown. "
                 "Try: ornivo-cli --help\n"},
             Row{{"sort"}, "SOURCE is required. Try: ornivo-cli sort --help\n"},
             Row{{"sort", "in"}, "DESTINATION is required. Try: ornivo-cli sort --help\n"},
             Row{{"find", "--in", "a", "--to", "b"},
                 "SPECIES is required. Try: ornivo-cli find --help\n"},
             Row{{"find", "osprey", "--to", "b"},
                 "--in is required. Try: ornivo-cli find --help\n"},
             Row{{"find", "osprey", "--in", "a"},
                 "--to is required. Try: ornivo-cli find --help\n"},
             Row{{"find", "osprey", "--in", "a", "--to", "b", "--rename"},
                 "The following argument was not expected: --rename. "
                 "Try: ornivo-cli find --help\n"},
             Row{{"resume"}, "DESTINATION is required. Try: ornivo-cli resume --help\n"},
             Row{{"discard"}, "DESTINATION is required. Try: ornivo-cli discard --help\n"},
             Row{{"file-decisions"},
                 "DESTINATION is required. Try: ornivo-cli file-decisions --help\n"},
             Row{{"species"}, "QUERY is required. Try: ornivo-cli species --help\n"},
             Row{{"species", "owl", "a\x1b[2J", "--b\x1b[2J"},
                 "The following argument was not expected: --b\uFFFD[2J. "
                 "Try: ornivo-cli species --help\n"},
         }) {
        const Ending ending = Program::run(row.arguments);
        EXPECT_EQ(ending.code, 2);
        EXPECT_EQ(ending.out, "");
        EXPECT_EQ(ending.err, row.sentence);
    }
}

TEST(CommandLine, AReportThatFindsNoRoomIsAFailureOfItsOwn) {
    const Ending ending =
        Program::run({"-c", builtProgram() + " --version > /dev/full"}, {}, "/bin/sh");
    EXPECT_EQ(ending.code, 1);
    EXPECT_EQ(ending.err, "The output couldn't be written: No space left on device.\n");
}

TEST(CommandLine, AFolderNamedLikeACommandIsAFolder) {
    EXPECT_EQ(Program::run({"sort", "species", "identify"}).err,
              "There is no folder \"species\".\n");
    EXPECT_EQ(Program::run({"sort", "sort", "sort"}).err, "There is no folder \"sort\".\n");
}

}  // namespace ornivo::cli
