#include "cli/FindArguments.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "cli/UsageError.h"

namespace ornivo::cli {

namespace {

using Words = std::vector<std::string>;

RunRequest requestOf(Words words) {
    CLI::App app;
    const FindArguments arguments(app);
    std::ranges::reverse(words);
    app.parse(words);
    return arguments.request();
}

}  // namespace

TEST(FindArguments, SpeciesAndFoldersMayStandInAnyOrder) {
    RunRequest expected;
    expected.mode = AppMode::find;
    expected.source = "in";
    expected.destination = "out";
    expected.targets = {{"Dodo", ""}, {"Great Auk", ""}};
    expected.options.confidence = 38;
    for (const Words& words : {Words{"Dodo", "Great Auk", "--in", "in", "--to", "out"},
                               Words{"--to", "out", "--in=in", "Dodo", "Great Auk"},
                               Words{"Dodo", "--in", "in", "--to", "out", "Great Auk"}}) {
        EXPECT_EQ(requestOf(words), expected) << ::testing::PrintToString(words);
    }
}

TEST(FindArguments, TheOptionsOfFilingCountHereToo) {
    const RunRequest request =
        requestOf({"Dodo", "--in", "in", "--to", "out", "--level", "probable", "--at", "51.5,-0.12",
                   "--date-subfolders", "--trash-originals", "--dry-run", "--json", "--yes"});
    EXPECT_EQ(request.options, (SortOptions{.mode = CopyMode::trashOriginal,
                                            .rename = false,
                                            .dateSubfolders = true,
                                            .confidence = 24,
                                            .assumedLocation = PhotoLocation::make(51.5, -0.12),
                                            .burstInheritance = BurstInheritance::off}));
    EXPECT_EQ(request.manner, (RunManner{.dryRun = true, .json = true, .yes = true}));
}

TEST(FindArguments, WhatDoesNotCountInASearchIsNoOption) {
    for (const Words& more : {Words{"--rename"}, Words{"--bursts", "off"}}) {
        Words words{"Dodo", "--in", "in", "--to", "out"};
        words.insert(words.end(), more.begin(), more.end());
        EXPECT_THROW(requestOf(words), CLI::ParseError);
    }
}

TEST(FindArguments, WordsAreTakenByteForByte) {
    const RunRequest request = requestOf({"[a,b]", "--in", "[in]", "--to", "caf\xe9"});
    EXPECT_EQ(request.targets, (std::vector<BirdSpecies>{{"[a,b]", ""}}));
    EXPECT_EQ(request.source, "[in]");
    EXPECT_EQ(request.destination, "caf\xe9");
    EXPECT_THROW(requestOf({"", "--in", "in", "--to", "out"}), UsageError);
}

}  // namespace ornivo::cli
