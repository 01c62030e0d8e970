#include "cli/IdentifyCommand.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <memory>
#include <utility>

#include "cli/BundledIdentifier.h"
#include "cli/CommandHelp.h"
#include "cli/EventJson.h"
#include "cli/ExplainingIdentifier.h"
#include "cli/FileAnswers.h"
#include "cli/Numbers.h"
#include "cli/Position.h"
#include "cli/TerminalText.h"
#include "engine/SortEngine.h"
#include "identification/BirdClassifierLabels.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace ornivo::cli {

namespace {

const std::vector<Example> examples{
    {"ornivo-cli identify IMG_2041.jpg", "the three likeliest species"},
    {"ornivo-cli identify *.CR3 --at -33.9,151.2", "several files, all taken near Sydney"},
    {"ornivo-cli identify --explain IMG_2041.jpg --at 56,10",
     "what the picture, the place and the month each have to say"},
    {"ornivo-cli identify --json *.jpg > calls.jsonl", "one JSON object a line, for scripts"},
};

/// The species in a file, or why they can't be told.
using Answer = AnswerOrReason<IdentifiedSpecies>;

Answer identify(SortEngine& engine, const std::filesystem::path& file,
                const std::optional<PhotoLocation>& location) {
    try {
        return engine.classify(file, location).species;
    } catch (const std::exception& error) {
        return error.what();
    }
}

std::string candidateWords(const std::string& label, double confidence) {
    constexpr std::size_t percentColumns = 4;
    std::string percent = percentage(confidence);
    percent.insert(0, percentColumns - std::min(percent.size(), percentColumns), ' ');
    return "  " + percent + "  " + printable(BirdClassifierLabels::displayName(label)) + " (" +
           printable(replacing(label, '_', ' ')) + ")";
}

std::string reasonWords(const ExplainedCandidate& candidate) {
    return ": classifier " + percentage(candidate.share) + ", range × " +
           shortestText(candidate.rangeFactor) + ", season × " +
           shortestText(candidate.seasonFactor);
}

/// Where the bird is in the square that the classifier looked at.
std::string boxWords(const SubjectBox& box) {
    return "  bird seen with " + percentage(box.score) + ": " + percentage(box.side) +
           " of the square's side, its centre " + percentage(box.centreX) + " from the left and " +
           percentage(box.centreY) + " from the top";
}

void printWords(Console& console, const std::string& file, const IdentifiedSpecies& species) {
    console.line(printable(file));
    for (const auto& candidate : species.topK) {
        console.line(candidateWords(candidate.label, candidate.confidence));
    }
}

void printWords(Console& console, const std::string& file, const Explanation& explanation) {
    console.line(printable(file));
    for (const auto& candidate : explanation.candidates) {
        console.line(candidateWords(candidate.label, candidate.confidence) +
                     reasonWords(candidate));
    }
    if (explanation.birdBox) console.line(boxWords(*explanation.birdBox));
}

void printJson(Console& console, const std::string& file, const Explanation& explanation) {
    Json candidates = Json::array();
    for (const auto& candidate : explanation.candidates) {
        candidates.push_back({{"commonName", BirdClassifierLabels::displayName(candidate.label)},
                              {"scientificName", replacing(candidate.label, '_', ' ')},
                              {"label", candidate.label},
                              {"classifierShare", candidate.share},
                              {"rangeFactor", candidate.rangeFactor},
                              {"seasonFactor", candidate.seasonFactor},
                              {"confidence", candidate.confidence}});
    }
    Json line{{"path", file}, {"candidates", candidates}};
    if (const auto& box = explanation.birdBox) {
        line["birdBox"] = {{"centreX", box->centreX},
                           {"centreY", box->centreY},
                           {"side", box->side},
                           {"score", box->score}};
    }
    console.write(jsonLine(line));
}

void printJson(Console& console, const std::string& file, const IdentifiedSpecies& species) {
    console.write(jsonLine({{"path", file}, {"candidates", candidatesJson(species)}}));
}

}  // namespace

IdentifyCommand::IdentifyCommand(CLI::App& parent)
    : command_(*parent.add_subcommand("identify", "Tell the birds in single files")) {
    files_ = addWords(command_, "FILE", "Photographs or clips");
    command_.add_option("--at", at_, "Where files without a position of their own were taken")
        ->type_name("LAT,LON");
    command_.add_flag("--explain", explain_, "Tell what picture, place and month each contribute");
    command_.add_flag("--json", json_, "One JSON object a file, a line each");
    addHelp(command_, "Options", examples);
}

ExitCode IdentifyCommand::run(Console& console) {
    return explain_ ? explain(console) : answer(console);
}

ExitCode IdentifyCommand::answer(Console& console) const {
    const std::vector<std::string>& files = files_->results();
    const auto location = at_ ? std::optional(parsePosition(*at_)) : std::nullopt;
    SortEngine engine(bundledIdentifier(), std::make_shared<JobController>());
    return tellOfEach<IdentifiedSpecies>(
        files, workersFor(files.size()), console, json_,
        [&](const std::filesystem::path& file) { return identify(engine, file, location); },
        [&](const std::string& file, const IdentifiedSpecies& species) {
            json_ ? printJson(console, file, species) : printWords(console, file, species);
        });
}

ExitCode IdentifyCommand::explain(Console& console) const {
    const auto location = at_ ? std::optional(parsePosition(*at_)) : std::nullopt;
    const auto identifier = std::make_shared<ExplainingIdentifier>();
    SortEngine engine(identifier, std::make_shared<JobController>());
    const auto ask = [&](const std::filesystem::path& file) -> AnswerOrReason<Explanation> {
        Answer answer = identify(engine, file, location);
        Explanation explanation = identifier->takeExplanation();
        if (auto* reason = std::get_if<std::string>(&answer)) return std::move(*reason);
        return explanation;
    };
    // The identifier explains one file at a time.
    constexpr unsigned noWorkers = 0;
    return tellOfEach<Explanation>(files_->results(), noWorkers, console, json_, ask,
                                   [&](const std::string& file, const Explanation& explanation) {
                                       json_ ? printJson(console, file, explanation)
                                             : printWords(console, file, explanation);
                                   });
}

}  // namespace ornivo::cli
