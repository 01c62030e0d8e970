#include "cli/EventJson.h"

#include <array>
#include <utility>

#include "cli/MatchedTarget.h"
#include "identification/BirdClassifierLabels.h"
#include "identification/TargetSpecies.h"
#include "platform/Text.h"

namespace ornivo::cli {

namespace {

constexpr std::array<std::pair<StopReason::Kind, const char*>, 4> reasonNames{{
    {StopReason::Kind::fatalError, "fatalError"},
    {StopReason::Kind::completed, "completed"},
    {StopReason::Kind::userCancelled, "userCancelled"},
    {StopReason::Kind::diskFull, "diskFull"},
}};

std::string nameOf(const StopReason& reason) {
    for (const auto& [kind, name] : reasonNames) {
        if (kind == reason.kind()) return name;
    }
    return {};
}

Json fileEvent(const char* event, std::size_t index, const RunScope& scope) {
    Json json{{"event", event}, {"index", index}};
    if (index < scope.files.size()) json["path"] = scope.files[index].string();
    return json;
}

Json candidateJson(const IdentifiedSpecies::Candidate& candidate) {
    return {{"commonName", BirdClassifierLabels::displayName(candidate.label)},
            {"scientificName", replacing(candidate.label, '_', ' ')},
            {"label", candidate.label},
            {"confidence", candidate.confidence}};
}

Json resultJson(const SortResult& result) {
    return {{"sorted", result.sorted},
            {"burstPromoted", result.burstPromoted},
            {"unidentified", result.unidentified},
            {"lowConfidence", result.lowConfidence},
            {"errors", result.errors},
            {"processed", result.processed},
            {"total", result.total},
            {"stopped", result.stopped},
            {"perSpecies", result.perSpecies},
            {"elapsedSeconds", result.elapsedSeconds},
            {"warnings", result.warnings}};
}

Json resultJson(const FindResult& result) {
    return {{"matched", result.matched},
            {"scanned", result.scanned},
            {"lowConfidence", result.lowConfidence},
            {"errors", result.errors},
            {"processed", result.processed},
            {"total", result.total},
            {"stopped", result.stopped},
            {"elapsedSeconds", result.elapsedSeconds},
            {"warnings", result.warnings}};
}

template <typename Result>
Json finishedJson(const char* event, const SortEngine::Outcome<Result>& finished) {
    Json json{{"event", event}, {"stopReason", nameOf(finished.stopReason)}};
    if (!finished.stopReason.message().empty()) json["message"] = finished.stopReason.message();
    json["lastProcessedIndex"] = finished.lastProcessedIndex;
    json["result"] = resultJson(finished.result);
    return json;
}

Json targetsJson(const std::vector<BirdSpecies>& targets) {
    Json list = Json::array();
    for (const BirdSpecies& target : targets) {
        list.push_back({{"commonName", target.commonName},
                        {"scientificName", target.scientificName},
                        {"known", TargetSpecies::isKnown(target)}});
    }
    return list;
}

}  // namespace

std::string jsonLine(const Json& object) {
    return object.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

Json candidatesJson(const IdentifiedSpecies& species) {
    Json list = Json::array();
    for (const auto& candidate : species.topK) list.push_back(candidateJson(candidate));
    return list;
}

Json scopeJson(const RunScope& scope) {
    Json json{{"event", scope.earlier ? "resume" : "scan"}};
    if (!scope.earlier) json["source"] = scope.source.string();
    json["destination"] = scope.destination.string();
    json["files"] = scope.files.size();
    if (scope.earlier) {
        json["startIndex"] = scope.earlier->files;
        json["sortedSoFar"] = scope.earlier->sorted;
        json["uncertainSoFar"] = scope.earlier->uncertain;
    } else {
        json["leftOut"] = scope.leftOut;
    }
    if (scope.mode == AppMode::find) json["species"] = targetsJson(scope.targets);
    return json;
}

Json eventJson(const ProgressUpdate& progress, const RunScope& scope) {
    Json json = fileEvent("progress", static_cast<std::size_t>(progress.current), scope);
    json["total"] = progress.total;
    json["fileName"] = progress.fileName;
    json["perSpecies"] = progress.perSpecies;
    json["unidentified"] = progress.unidentified;
    return json;
}

Json eventJson(const SortEngine::Prediction& prediction, std::size_t index, const RunScope& scope) {
    Json json = fileEvent("prediction", index, scope);
    json["candidates"] = prediction.species ? candidatesJson(*prediction.species) : Json(nullptr);
    json["notice"] = prediction.notice ? Json(*prediction.notice) : Json(nullptr);
    if (scope.mode == AppMode::find) {
        const auto match = matchedTarget(scope, prediction);
        json["match"] = match ? Json(match->displayName()) : Json(nullptr);
    }
    return json;
}

Json eventJson(const SortEngine::DiskFull& diskFull, const RunScope& scope) {
    return fileEvent("diskFull", static_cast<std::size_t>(diskFull.atIndex), scope);
}

Json eventJson(const SortEngine::SortFinished& finished) {
    return finishedJson("sortFinished", finished);
}

Json eventJson(const SortEngine::FindFinished& finished) {
    return finishedJson("findFinished", finished);
}

Json stepJson(const PlanStep& step) {
    Json json{{"event", "plan"}, {"action", rawValue(step.kind)}};
    if (!step.from.empty()) json["from"] = step.from.string();
    if (!step.to.empty()) json["to"] = step.to.string();
    return json;
}

}  // namespace ornivo::cli
