#include "cli/SortArguments.h"

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
    const SortArguments arguments(app);
    std::ranges::reverse(words);
    app.parse(words);
    return arguments.request();
}

std::string refusalOf(const Words& words) {
    try {
        requestOf(words);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "accepted";
}

RunRequest plainRequest() {
    RunRequest request;
    request.source = "in";
    request.destination = "out";
    request.options.confidence = 38;
    return request;
}

/// The plain request with one thing changed.
template <typename Change>
RunRequest with(Change change) {
    RunRequest request = plainRequest();
    change(request);
    return request;
}

}  // namespace

TEST(SortArguments, EachArgumentSetsItsOption) {
    struct Row {
        Words words;
        RunRequest expected;
    };
    const std::vector<Row> rows{
        {{}, plainRequest()},
        {{"--confidence", "0"}, with([](auto& r) { r.options.confidence = 0; })},
        {{"--confidence=100"}, with([](auto& r) { r.options.confidence = 100; })},
        {{"--level", "confirmed"}, with([](auto& r) { r.options.confidence = 48; })},
        {{"--level", "probable"}, with([](auto& r) { r.options.confidence = 24; })},
        {{"--level", "possible"}, with([](auto& r) { r.options.confidence = 0; })},
        {{"--bursts", "off"}, plainRequest()},
        {{"--bursts", "confirmedOnly"},
         with([](auto& r) { r.options.burstInheritance = BurstInheritance::confirmedOnly; })},
        {{"--bursts", "confirmedAndCorrected"}, with([](auto& r) {
             r.options.burstInheritance = BurstInheritance::confirmedAndCorrected;
         })},
        {{"--rename"}, with([](auto& r) { r.options.rename = true; })},
        {{"--date-subfolders"}, with([](auto& r) { r.options.dateSubfolders = true; })},
        {{"--trash-originals"}, with([](auto& r) { r.options.mode = CopyMode::trashOriginal; })},
        {{"--at", "51.5,-0.12"},
         with([](auto& r) { r.options.assumedLocation = PhotoLocation::make(51.5, -0.12); })},
        {{"--at", "-33.9,151.2"},
         with([](auto& r) { r.options.assumedLocation = PhotoLocation::make(-33.9, 151.2); })},
        {{"--dry-run"}, with([](auto& r) { r.manner.dryRun = true; })},
        {{"--json"}, with([](auto& r) { r.manner.json = true; })},
        {{"--yes"}, with([](auto& r) { r.manner.yes = true; })},
    };
    for (const Row& row : rows) {
        Words after{"in", "out"};
        after.insert(after.end(), row.words.begin(), row.words.end());
        EXPECT_EQ(requestOf(after), row.expected) << ::testing::PrintToString(row.words);
        Words before = row.words;
        before.insert(before.end(), {"in", "out"});
        EXPECT_EQ(requestOf(before), row.expected) << ::testing::PrintToString(row.words);
    }
}

TEST(SortArguments, FolderNamesAreTakenByteForByte) {
    for (const std::string name : {"[birds]", "a,b", "with blank", "caf\xe9", "a\nb", "{}", "%s",
                                   "species", "#1", "'quoted'", "=x"}) {
        EXPECT_EQ(requestOf({name, "out"}).source.string(), name);
        EXPECT_EQ(requestOf({"in", name}).destination.string(), name);
    }
    EXPECT_EQ(requestOf({"--", "-in", "--json"}).source.string(), "-in");
    EXPECT_EQ(requestOf({"--", "-in", "--json"}).destination.string(), "--json");
}

TEST(SortArguments, ValuesThatMakeNoSenseAreRefusedInASentence) {
    struct Row {
        Words words;
        std::string sentence;
    };
    const std::string confidence = "--confidence takes a whole number from 0 to 100; ";
    for (const Row& row : {
             Row{{"--confidence", "101"}, confidence + "\"101\" is not that."},
             Row{{"--confidence", "-1"}, confidence + "\"-1\" is not that."},
             Row{{"--confidence", "38.5"}, confidence + "\"38.5\" is not that."},
             Row{{"--confidence", "0x10"}, confidence + "\"0x10\" is not that."},
             Row{{"--confidence", ""}, confidence + "\"\" is not that."},
             Row{{"--level", "Confirmed"},
                 "--level takes confirmed, probable or possible; \"Confirmed\" is none of them."},
             Row{{"--level", "--json"},
                 "--level takes confirmed, probable or possible; \"--json\" is none of them."},
             Row{{"--level", "probable", "--confidence", "38"},
                 "--confidence and --level say the same thing in two ways: give one."},
             Row{{"--bursts", "on"},
                 "--bursts takes off, confirmedOnly or confirmedAndCorrected; \"on\" is none of "
                 "them."},
             Row{{"--at", "nowhere"},
                 "--at takes a latitude and a longitude in degrees, as in 51.5,-0.12; \"nowhere\" "
                 "is not that."},
         }) {
        Words words{"in", "out"};
        words.insert(words.end(), row.words.begin(), row.words.end());
        EXPECT_EQ(refusalOf(words), row.sentence);
    }
}

TEST(SortArguments, TooFewAndTooManyFoldersAreNoCommand) {
    EXPECT_THROW(requestOf({}), CLI::ParseError);
    EXPECT_THROW(requestOf({"in"}), CLI::ParseError);
    EXPECT_THROW(requestOf({"in", "out", "more"}), CLI::ParseError);
    EXPECT_THROW(requestOf({"in", "out", "--unknown"}), CLI::ParseError);
}

TEST(SortArguments, ARegionIsAssumedByIdOrTypedPlaceAndTold) {
    const RunRequest request = requestOf({"in", "out", "--region", "Kerala"});
    EXPECT_TRUE(request.options.assumedLocation);
    EXPECT_EQ(request.placeNote.substr(0, 9), "Kerala \xE2\x86");
}

TEST(SortArguments, APositionAndARegionAreOneTooMany) {
    EXPECT_EQ(refusalOf({"in", "out", "--at", "1,2", "--region", "Kerala"}),
              "--at and --region say the same thing in two ways: give one.");
}

}  // namespace ornivo::cli
