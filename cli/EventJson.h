#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "cli/Plan.h"
#include "cli/RunScope.h"
#include "engine/SortEngine.h"
#include "vocabulary/IdentifiedSpecies.h"

/// A run as scripts read it: one JSON object a line, the kind of thing told in its "event".
namespace ornivo::cli {

using Json = nlohmann::ordered_json;

/// The object on one line, in UTF-8 whatever bytes the names in it hold.
std::string jsonLine(const Json& object);

/// A list of objects with "commonName", "scientificName", "label" and "confidence".
Json candidatesJson(const IdentifiedSpecies& species);

/// What the run is about: the "scan" of a new one, and of one that goes on "resume".
Json scopeJson(const RunScope& scope);

/// One event of the run. Those that tell of a file give its "index" in the run's list and its
/// "path"; in Find mode a prediction tells its "match", the name of the species searched for or
/// null.
Json eventJson(const ProgressUpdate& progress, const RunScope& scope);
Json eventJson(const SortEngine::Prediction& prediction, std::size_t index, const RunScope& scope);
Json eventJson(const SortEngine::DiskFull& diskFull, const RunScope& scope);
Json eventJson(const SortEngine::SortFinished& finished);
Json eventJson(const SortEngine::FindFinished& finished);

/// One step of a dry run.
Json stepJson(const PlanStep& step);

}  // namespace ornivo::cli
