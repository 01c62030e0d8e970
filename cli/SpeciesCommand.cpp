#include "cli/SpeciesCommand.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "cli/CommandHelp.h"
#include "cli/EventJson.h"
#include "cli/Numbers.h"
#include "cli/TerminalText.h"
#include "cli/UsageError.h"
#include "identification/BirdClassifierLabels.h"

namespace ornivo::cli {

namespace {

using BirdClassifierLabels::SpeciesMatch;

const std::vector<Example> examples{
    {"ornivo-cli species heron", "birds with that word in their name"},
    {"ornivo-cli species \"ardea cinerea\"", "scientific names serve as well"},
    {"ornivo-cli species duck --limit 40", "more suggestions"},
};

constexpr const char* usualLimit = "8";

/// What is known of a name.
struct Lookup {
    std::string query;
    std::optional<SpeciesMatch> exact;
    std::vector<SpeciesMatch> suggestions;
};

int parseLimit(std::string_view text) {
    const auto limit = parseWhole(text);
    if (limit && *limit >= 0) return *limit;
    throw UsageError("--limit takes a whole number; \"" + std::string(text) + "\" is not that.");
}

std::string nameOf(const SpeciesMatch& match) {
    return match.commonName + " (" + match.scientificName + ")";
}

void printWords(Console& console, const Lookup& lookup) {
    if (lookup.exact) console.line(printable("✓ " + nameOf(*lookup.exact)), Tone::accent);
    const bool isFound = lookup.exact || !lookup.suggestions.empty();
    if (!isFound) {
        console.line("Not among the " + std::to_string(BirdClassifierLabels::speciesCount()) +
                         " species this version knows.",
                     Tone::warning);
    }
    for (const auto& match : lookup.suggestions) {
        if (match != lookup.exact) console.line(printable("  " + nameOf(match)));
    }
}

Json matchJson(const SpeciesMatch& match) {
    return {{"commonName", match.commonName}, {"scientificName", match.scientificName}};
}

void printJson(Console& console, const Lookup& lookup) {
    Json suggestions = Json::array();
    for (const auto& match : lookup.suggestions) suggestions.push_back(matchJson(match));
    console.write(jsonLine({{"query", lookup.query},
                            {"match", lookup.exact ? matchJson(*lookup.exact) : Json(nullptr)},
                            {"suggestions", suggestions},
                            {"speciesCount", BirdClassifierLabels::speciesCount()}}));
}

}  // namespace

SpeciesCommand::SpeciesCommand(CLI::App& parent)
    : command_(*parent.add_subcommand("species", "Look a bird up among those it can recognise")),
      limit_(usualLimit) {
    words_ = addWords(command_, "QUERY", "A name or part of one, common or scientific");
    command_.add_option("--limit", limit_, "How many suggestions at most; 8 unless said")
        ->type_name("N");
    command_.add_flag("--json", json_, "One JSON object");
    addHelp(command_, "Options", examples);
}

ExitCode SpeciesCommand::run(Console& console) {
    Lookup lookup{joinedWords(words_->results()), std::nullopt, {}};
    lookup.exact = BirdClassifierLabels::species(lookup.query);
    lookup.suggestions = BirdClassifierLabels::search(lookup.query, parseLimit(limit_));
    json_ ? printJson(console, lookup) : printWords(console, lookup);
    return ExitCode::done;
}

}  // namespace ornivo::cli
