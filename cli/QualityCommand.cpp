#include "cli/QualityCommand.h"

#include <filesystem>
#include <string>
#include <vector>

#include "cli/CommandHelp.h"
#include "cli/EventJson.h"
#include "cli/FileAnswers.h"
#include "cli/Numbers.h"
#include "cli/TerminalText.h"
#include "media/ImageDecoder.h"
#include "media/VideoDecoder.h"
#include "platform/Numbers.h"

namespace ornivo::cli {

namespace {

const std::vector<Example> examples{
    {"ornivo-cli quality IMG_2041.jpg", "is it sharp and well exposed?"},
    {"ornivo-cli quality --json *.CR3 > quality.jsonl", "one JSON object a line, for scripts"},
};

/// The measures of a file, or why there are none.
using Reading = AnswerOrReason<PhotoQuality>;

Reading measure(const std::filesystem::path& file) {
    // What the classifier looks at; RAW files are measured at that size.
    constexpr int maxDimension = 640;
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
    return "sharpness " + fixedText(quality.sharpness, 4) + ", mean luminance " +
           fixedText(quality.meanLuminance, 2) + ", clipped highlights " +
           percentText(quality.clippedHighlights) + ", clipped shadows " +
           percentText(quality.clippedShadows) +
           (quality.iso ? ", ISO " + std::to_string(*quality.iso) : "");
}

void printWords(Console& console, const std::string& file, const PhotoQuality& quality) {
    const bool isFaultless = quality.tags().empty();
    console.line(printable(file));
    console.line("  " + tagWords(quality), isFaultless ? Tone::accent : Tone::warning);
    console.line("  " + measureWords(quality), Tone::subdued);
}

void printJson(Console& console, const std::string& file, const PhotoQuality& quality) {
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
    return tellOfEach<PhotoQuality>(files, workersFor(files.size()), console, json_, measure,
                                    [&](const std::string& file, const PhotoQuality& quality) {
                                        json_ ? printJson(console, file, quality)
                                              : printWords(console, file, quality);
                                    });
}

}  // namespace ornivo::cli
