// RAW files against JPEGs: each maker's container decoded, and a run over pairs of both.

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "benchmarks/Photographs.h"
#include "benchmarks/RawPhotographs.h"
#include "engine/SortEngine.h"
#include "identification/BirdIdentifier.h"
#include "identification/NoSpeciesPrior.h"
#include "media/ImageDecoder.h"

namespace ornivo::benchmarks {
namespace {

namespace fs = std::filesystem;

constexpr int classifierSide = 640;
constexpr std::size_t pairCount = 24;

double secondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// `raw/jpeg` is the time of a RAW file over that of a JPEG of 24 megapixels, decoded in turn.
void decodeRaw(benchmark::State& state, testing::RawKind kind) {
    static const Photographs photographs(1);
    const testing::TempFolder folder;
    const auto raw = testing::writeFile(
        folder / ("IMG_1." + std::string(testing::extensionOf(kind))), rawPhotograph(kind));
    if (!ImageDecoder::decode(raw, classifierSide, false)) {
        return state.SkipWithError("The RAW file doesn't decode.");
    }
    double jpegSeconds = 0;
    double rawSeconds = 0;
    for (auto _ : state) {
        jpegSeconds += secondsOf([&] {
            benchmark::DoNotOptimize(
                ImageDecoder::decode(photographs.files().front(), classifierSide, false));
        });
        const double seconds = secondsOf(
            [&] { benchmark::DoNotOptimize(ImageDecoder::decode(raw, classifierSide, false)); });
        rawSeconds += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["raw/jpeg"] = rawSeconds / jpegSeconds;
}

double secondsOfRun(const std::vector<fs::path>& files,
                    const std::shared_ptr<BirdIdentifying>& identifier) {
    const testing::TempFolder destination;
    SortEngine engine(identifier, std::make_shared<JobController>());
    SortEngine::RunInput input;
    input.paths = files;
    input.destination = destination.path();
    return secondsOf([&] {
        auto events = engine.run(std::move(input));
        while (events.next()) {
        }
    });
}

/// `pairs/jpegs` is the time of a run over pairs over that of a run over their JPEGs alone.
void runOverPairs(benchmark::State& state) {
    const Photographs photographs(pairCount);
    const std::string raw = rawPhotograph(testing::RawKind::cr3);
    std::vector<fs::path> pairs;
    for (const fs::path& jpeg : photographs.files()) {
        pairs.push_back(testing::writeFile(fs::path(jpeg).replace_extension("CR3"), raw));
        pairs.push_back(jpeg);
    }
    const auto identifier = std::make_shared<BirdIdentifier>(
        ConfidencePolicy(), std::make_shared<NoSpeciesPrior>(), std::nullopt);
    double jpegSeconds = 0;
    double pairSeconds = 0;
    for (auto _ : state) {
        jpegSeconds += secondsOfRun(photographs.files(), identifier);
        const double seconds = secondsOfRun(pairs, identifier);
        pairSeconds += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["pairs/jpegs"] = pairSeconds / jpegSeconds;
}
BENCHMARK(runOverPairs)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);

const bool registered = [] {
    for (const testing::RawKind kind : testing::allRawKinds) {
        const auto name = "decodeRaw/" + std::string(testing::extensionOf(kind));
        benchmark::RegisterBenchmark(name.c_str(), decodeRaw, kind)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime();
    }
    return true;
}();

}  // namespace
}  // namespace ornivo::benchmarks
