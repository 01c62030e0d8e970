#include "cli/PlaceCommand.h"

#include <optional>
#include <string>
#include <vector>

#include "cli/CommandHelp.h"
#include "cli/EventJson.h"
#include "cli/Numbers.h"
#include "cli/TerminalText.h"
#include "identification/PlaceGazetteer.h"

namespace ornivo::cli {

namespace {

using Place = PlaceGazetteer::Place;

constexpr std::size_t suggestionLimit = 8;

const std::vector<Example> examples{
    {"ornivo-cli place Kerala", "where is it, and which birds count there?"},
    {"ornivo-cli place ban", "the places that hold what has been typed so far"},
};

/// What is known of a typed place.
struct Lookup {
    std::string query;
    std::optional<Place> match;
    std::vector<Place> suggestions;
};

std::string placeText(const Place& place) {
    return place.name + " (" + degreesText(place.latitude) + ", " + degreesText(place.longitude) +
           ") in " + place.regionID;
}

void printWords(Console& console, const Lookup& lookup) {
    if (lookup.match) {
        console.line(printable("✓ " + placeText(*lookup.match)), Tone::accent);
    } else {
        console.line(
            printable("Couldn't place “" + lookup.query + "”. Try a state, country or major city."),
            Tone::warning);
    }
    for (const Place& place : lookup.suggestions) {
        if (place != lookup.match) console.line(printable("  " + placeText(place)));
    }
}

Json placeJson(const Place& place) {
    return {{"name", place.name},
            {"aliases", place.aliases},
            {"latitude", place.latitude},
            {"longitude", place.longitude},
            {"regionID", place.regionID}};
}

void printJson(Console& console, const Lookup& lookup) {
    Json suggestions = Json::array();
    for (const Place& place : lookup.suggestions) suggestions.push_back(placeJson(place));
    console.write(jsonLine({{"query", lookup.query},
                            {"match", lookup.match ? placeJson(*lookup.match) : Json(nullptr)},
                            {"suggestions", suggestions}}));
}

}  // namespace

PlaceCommand::PlaceCommand(CLI::App& parent)
    : command_(*parent.add_subcommand("place", "Look a place up that you would type")) {
    words_ = addWords(command_, "TEXT", "A place: a country, state, city or birding spot");
    command_.add_flag("--json", json_, "One JSON object");
    addHelp(command_, "Options", examples);
}

ExitCode PlaceCommand::run(Console& console) {
    Lookup lookup{joinedWords(words_->results()), std::nullopt, {}};
    if (const auto gazetteer = PlaceGazetteer::bundled()) {
        lookup.match = gazetteer->match(lookup.query);
        lookup.suggestions = gazetteer->suggestions(lookup.query, suggestionLimit);
    }
    json_ ? printJson(console, lookup) : printWords(console, lookup);
    return ExitCode::done;
}

}  // namespace ornivo::cli
