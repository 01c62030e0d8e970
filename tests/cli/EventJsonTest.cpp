#include "cli/EventJson.h"

#include <gtest/gtest.h>

#include "identification/BirdClassifierLabels.h"

namespace ornivo::cli {

namespace {

RunScope scopeOf(std::vector<std::filesystem::path> files) {
    return {"/in", "/out", std::move(files), 2};
}

const IdentifiedSpecies hoopoe{{"Upupa_epops", 0.75},
                               {{"Upupa_epops", 0.75}, {"Jynx_torquilla", 0.125}}};

std::string nameOf(const char* label) {
    return BirdClassifierLabels::displayName(label);
}

}  // namespace

TEST(EventJson, TheScanTellsWhatTheRunIsAbout) {
    EXPECT_EQ(jsonLine(scopeJson(scopeOf({"/in/a.jpg"}))),
              R"({"event":"scan","source":"/in","destination":"/out","files":1,"leftOut":2})"
              "\n");
}

TEST(EventJson, ASearchTellsItsSpeciesAndWhichOfThemCanBeFound) {
    RunScope scope = scopeOf({"/in/a.jpg"});
    scope.mode = AppMode::find;
    scope.targets = {{"Dodo", ""}, {nameOf("Upupa_epops"), "Upupa epops"}};
    EXPECT_EQ(jsonLine(scopeJson(scope)),
              R"({"event":"scan","source":"/in","destination":"/out","files":1,"leftOut":2,)"
              R"("species":[{"commonName":"Dodo","scientificName":"","known":false},)"
              R"({"commonName":")" +
                  nameOf("Upupa_epops") +
                  R"(","scientificName":"Upupa epops","known":true}]})"
                  "\n");
}

TEST(EventJson, ARunThatGoesOnTellsWhereAndWhatWasDone) {
    RunScope scope = scopeOf({"/in/a.jpg", "/in/b.jpg"});
    scope.earlier = RunScope::EarlierPart{.files = 1, .sorted = 4, .uncertain = 5};
    EXPECT_EQ(jsonLine(scopeJson(scope)),
              R"({"event":"resume","destination":"/out","files":2,"startIndex":1,)"
              R"("sortedSoFar":4,"uncertainSoFar":5})"
              "\n");
}

TEST(EventJson, APredictionOfASearchTellsWhatItMatched) {
    RunScope scope = scopeOf({"/in/a.jpg"});
    scope.mode = AppMode::find;
    scope.targets = {{"Dodo", ""}, {"my hoopoes", "upupa-epops"}};
    const auto matchOf = [&](const SortEngine::Prediction& prediction) {
        return eventJson(prediction, 0, scope)["match"];
    };
    EXPECT_EQ(matchOf({hoopoe, std::nullopt}), "my hoopoes");
    EXPECT_TRUE(matchOf({hoopoe, "Low confidence"}).is_null());
    EXPECT_TRUE(matchOf({std::nullopt, "no picture"}).is_null());
    scope.targets.pop_back();
    EXPECT_TRUE(matchOf({hoopoe, std::nullopt}).is_null());
}

TEST(EventJson, ProgressTellsTheFileAndTheRunningCounts) {
    const ProgressUpdate progress{1, 3, "b.jpg", {{"Hoopoe", 4}}, 5};
    EXPECT_EQ(jsonLine(eventJson(progress, scopeOf({"/in/a.jpg", "/in/x/b.jpg", "/in/c.jpg"}))),
              R"({"event":"progress","index":1,"path":"/in/x/b.jpg","total":3,"fileName":"b.jpg",)"
              R"("perSpecies":{"Hoopoe":4},"unidentified":5})"
              "\n");
}

TEST(EventJson, APredictionListsItsCandidates) {
    const auto json =
        eventJson(SortEngine::Prediction{hoopoe, "notice"}, 0, scopeOf({"/in/a.jpg"}));
    EXPECT_EQ(json["event"], "prediction");
    EXPECT_EQ(json["index"], 0);
    EXPECT_EQ(json["path"], "/in/a.jpg");
    EXPECT_EQ(json["notice"], "notice");
    ASSERT_EQ(json["candidates"].size(), 2U);
    EXPECT_EQ(json["candidates"][0], (Json{{"commonName", nameOf("Upupa_epops")},
                                           {"scientificName", "Upupa epops"},
                                           {"label", "Upupa_epops"},
                                           {"confidence", 0.75}}));
    EXPECT_EQ(json["candidates"][1]["scientificName"], "Jynx torquilla");
}

TEST(EventJson, WhatIsAbsentIsNull) {
    const auto scope = scopeOf({"/in/a.jpg"});
    EXPECT_TRUE(
        eventJson(SortEngine::Prediction{std::nullopt, "why"}, 0, scope)["candidates"].is_null());
    EXPECT_TRUE(
        eventJson(SortEngine::Prediction{hoopoe, std::nullopt}, 0, scope)["notice"].is_null());
}

TEST(EventJson, AFullDiskTellsTheFileThatFoundNoRoom) {
    EXPECT_EQ(jsonLine(eventJson(SortEngine::DiskFull{1}, scopeOf({"/in/a.jpg", "/in/b.jpg"}))),
              R"({"event":"diskFull","index":1,"path":"/in/b.jpg"})"
              "\n");
}

TEST(EventJson, TheTotalsHoldEveryCountAndTheReason) {
    SortEngine::SortFinished finished;
    finished.lastProcessedIndex = 8;
    SortResult& result = finished.result;
    result.sorted = 1;
    result.burstPromoted = 2;
    result.unidentified = 3;
    result.lowConfidence = 4;
    result.errors = 5;
    result.processed = 6;
    result.total = 7;
    result.stopped = true;
    result.perSpecies = {{"Hoopoe", 1}};
    result.elapsedSeconds = 1.5;
    result.warnings = {"w"};
    finished.stopReason = StopReason::diskFull();
    EXPECT_EQ(jsonLine(eventJson(finished)),
              R"({"event":"sortFinished","stopReason":"diskFull","lastProcessedIndex":8,"result":{)"
              R"("sorted":1,"burstPromoted":2,"unidentified":3,"lowConfidence":4,"errors":5,)"
              R"("processed":6,"total":7,"stopped":true,"perSpecies":{"Hoopoe":1},)"
              R"("elapsedSeconds":1.5,"warnings":["w"]}})"
              "\n");
}

TEST(EventJson, TheTotalsOfASearchHoldEveryCountAndTheReason) {
    SortEngine::FindFinished finished;
    finished.lastProcessedIndex = 8;
    finished.stopReason = StopReason::userCancelled();
    FindResult& result = finished.result;
    result.matched = 1;
    result.scanned = 2;
    result.lowConfidence = 3;
    result.errors = 4;
    result.processed = 5;
    result.total = 6;
    result.stopped = true;
    result.elapsedSeconds = 1.5;
    result.warnings = {"w"};
    EXPECT_EQ(jsonLine(eventJson(finished)),
              R"({"event":"findFinished","stopReason":"userCancelled","lastProcessedIndex":8,)"
              R"("result":{"matched":1,"scanned":2,"lowConfidence":3,"errors":4,"processed":5,)"
              R"("total":6,"stopped":true,"elapsedSeconds":1.5,"warnings":["w"]}})"
              "\n");
}

TEST(EventJson, EachReasonHasItsName) {
    struct Row {
        StopReason reason;
        const char* name;
    };
    for (const Row& row : {Row{StopReason::completed(), "completed"},
                           Row{StopReason::userCancelled(), "userCancelled"},
                           Row{StopReason::diskFull(), "diskFull"},
                           Row{StopReason::fatalError("gone"), "fatalError"}}) {
        SortEngine::SortFinished finished;
        finished.stopReason = row.reason;
        const auto json = eventJson(finished);
        EXPECT_EQ(json["stopReason"], row.name);
        EXPECT_EQ(json.value("message", ""), row.reason.message());
    }
}

TEST(EventJson, AStepTellsOnlyTheSidesThatItHas) {
    EXPECT_EQ(stepJson({PlanStep::Kind::copy, "/in/a", "/out/a"}),
              (Json{{"event", "plan"}, {"action", "copy"}, {"from", "/in/a"}, {"to", "/out/a"}}));
    EXPECT_EQ(stepJson({PlanStep::Kind::trash, "/in/a", {}}),
              (Json{{"event", "plan"}, {"action", "trash"}, {"from", "/in/a"}}));
    EXPECT_EQ(stepJson({PlanStep::Kind::write, {}, "/out/a"}),
              (Json{{"event", "plan"}, {"action", "write"}, {"to", "/out/a"}}));
}

TEST(EventJson, NamesThatAreNoUtf8ComeAsValidUtf8OnOneLine) {
    const auto line = jsonLine(eventJson(SortEngine::DiskFull{0}, scopeOf({"/in/caf\xe9\n.jpg"})));
    EXPECT_EQ(line, "{\"event\":\"diskFull\",\"index\":0,\"path\":\"/in/caf\uFFFD\\n.jpg\"}\n");
    EXPECT_TRUE(Json::accept(line));
}

}  // namespace ornivo::cli
