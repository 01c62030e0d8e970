#include "cli/ResumeCommandLine.h"

#include <gtest/gtest.h>

#include "cli/SortScene.h"

namespace ornivo::cli {

using namespace ornivo::testing;

TEST(ResumeCommandLine, AWordIsQuotedOnlyWhereItHasTo) {
    EXPECT_EQ(shellWord("/media/birds-2/a.b_c,d+e:f@g=h"), "/media/birds-2/a.b_c,d+e:f@g=h");
    EXPECT_EQ(shellWord(""), "''");
    EXPECT_EQ(shellWord("Bald Eagle"), "'Bald Eagle'");
    EXPECT_EQ(shellWord("Steller's"), "'Steller'\\''s'");
    EXPECT_EQ(shellWord("~/x"), "'~/x'");
}

TEST(ResumeCommandLine, TheShellReadsAnyWordBackAsItWas) {
    for (const std::string word : {"Bald Eagle", "it's", "$HOME", "`id`", "a\\b", "\"", "*", "a\nb",
                                   "caf\xc3\xa9", "caf\xe9", "#1", "!x"}) {
        const Ending ending = Program::run({"-c", "printf %s " + shellWord(word)}, {}, "/bin/sh");
        EXPECT_EQ(ending.out, word);
    }
}

TEST(ResumeCommandLine, TheDestinationIsNamedAndInASearchTheSpecies) {
    RunScope scope;
    scope.destination = "/media/my disk/Birds";
    EXPECT_EQ(resumeCommandLine(scope), "ornivo-cli resume '/media/my disk/Birds'");
    scope.mode = AppMode::find;
    scope.targets = {{"Bald Eagle", "Haliaeetus leucocephalus"}, {"", "Raphus"}};
    EXPECT_EQ(resumeCommandLine(scope),
              "ornivo-cli resume '/media/my disk/Birds' --species 'Bald Eagle' --species Raphus");
}

}  // namespace ornivo::cli
