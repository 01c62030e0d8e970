#include "cli/QualityCommand.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string>
#include <system_error>
#include <variant>
#include <vector>

#include "cli/CommandHelp.h"
#include "cli/EventJson.h"
#include "cli/Numbers.h"
#include "cli/TerminalText.h"
#include "engine/LookAhead.h"
#include "engine/SortEngine.h"
#include "media/ImageDecoder.h"
#include "media/VideoDecoder.h"

namespace ornivo::cli {

namespace {

const std::vector<Example> examples{
    {"ornivo-cli quality IMG_2041.jpg", "is it sharp and well exposed?"},
    {"ornivo-cli quality --json *.CR3 > quality.jsonl", "one JSON object a line, for scripts"},
};

/// The measures of a file, or why there are none.
using Reading = std::variant<PhotoQuality, std::string>;

Reading measure(const std::filesystem::path& file) {
    // What the classifier looks at; RAW files are measured at that size.
    constexpr int maxDimension = 640;
    std::error_code failure;
    if (!std::filesystem::exists(file, failure)) return "There is no such file.";
    if (!std::filesystem::is_regular_file(file, failure)) return "It is not an ordinary file.";
    if (VideoDecoder::isVideo(file)) return "It is a clip; only photographs are measured.";
    const auto decoded = ImageDecoder::decode(file, maxDimension, true);
    if (!decoded) return "The file couldn't be read.";
    return decoded->metadata.quality.value();
}

std::string percentText(double share) {
    return withOneDecimal(share * 100) + "%";
}

std::string tagWords(const PhotoQuality& quality) {
    std::string words;
    for (const QualityTag tag : quality.tags()) {
        words += (words.empty() ? "" : ", ") + std::string(label(tag));
    }
    return words.empty() ? "Nothing to remark on" : words;
}

std::string measureWords(const PhotoQuality& quality) {
    return "sharpness " + withDecimals(quality.sharpness, 4) + ", mean luminance " +
           withDecimals(quality.meanLuminance, 2) + ", clipped highlights " +
           percentText(quality.clippedHighlights) + ", clipped shadows " +
           percentText(quality.clippedShadows) +
           (quality.iso ? ", ISO " + std::to_string(*quality.iso) : "");
}

void printWords(Console& console, const std::string& file, const Reading& reading) {
    if (const auto* why = std::get_if<std::string>(&reading)) {
        console.line(printable("✗ " + file + ": " + *why), Tone::error);
        return;
    }
    const auto& quality = std::get<PhotoQuality>(reading);
    const bool isFaultless = quality.tags().empty();
    console.line(printable(file));
    console.line("  " + tagWords(quality), isFaultless ? Tone::accent : Tone::warning);
    console.line("  " + measureWords(quality), Tone::subdued);
}

void printJson(Console& console, const std::string& file, const Reading& reading) {
    if (const auto* why = std::get_if<std::string>(&reading)) {
        console.write(jsonLine({{"path", file}, {"error", *why}}));
        return;
    }
    const auto& quality = std::get<PhotoQuality>(reading);
    Json tags = Json::array();
    for (const QualityTag tag : quality.tags()) tags.push_back(rawValue(tag));
    console.write(jsonLine({{"path", file},
                            {"sharpness", quality.sharpness},
                            {"meanLuminance", quality.meanLuminance},
                            {"clippedHighlights", quality.clippedHighlights},
                            {"clippedShadows", quality.clippedShadows},
                            {"iso", quality.iso ? Json(*quality.iso) : Json(nullptr)},
                            {"tags", tags}}));
}

}  // namespace

QualityCommand::QualityCommand(CLI::App& parent)
    : command_(*parent.add_subcommand("quality", "Measure sharpness and exposure of photographs")) {
    files_ = addWords(command_, "FILE", "Photographs");
    command_.add_flag("--json", json_, "One JSON object a file, a line each");
    addHelp(command_, "Options", examples);
}

ExitCode QualityCommand::run(Console& console) {
    const std::vector<std::string>& files = files_->results();
    const auto workers = std::min<std::size_t>(SortEngine::defaultWorkers(), files.size());
    LookAhead<Reading> readings(files.size(), static_cast<unsigned>(workers),
                                [&](std::size_t i) { return measure(files[i]); });
    ExitCode code = ExitCode::done;
    for (const auto& file : files) {
        const Reading reading = readings.take();
        if (std::holds_alternative<std::string>(reading)) code = ExitCode::someFailed;
        json_ ? printJson(console, file, reading) : printWords(console, file, reading);
    }
    return code;
}

}  // namespace ornivo::cli
