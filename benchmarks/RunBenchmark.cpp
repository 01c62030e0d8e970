// Whole runs against the sum of their parts, and with the look-ahead against without.

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

#include "benchmarks/Photographs.h"
#include "engine/SortEngine.h"
#include "identification/BirdIdentifier.h"
#include "identification/NoSpeciesPrior.h"
#include "media/ImageDecoder.h"

namespace ornivo::benchmarks {
namespace {

constexpr std::size_t photographCount = 24;
constexpr int classifierSide = 640;

double secondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Decoding, classifying and copying every file, one after the other.
double secondsOfParts(const Photographs& photographs, BirdIdentifier& identifier) {
    const testing::TempFolder destination;
    return secondsOf([&] {
        for (const auto& file : photographs.files()) {
            const auto decoded = ImageDecoder::decode(file, classifierSide, false);
            benchmark::DoNotOptimize(identifier.identify(decoded->image));
            Files::system()->copy(file, destination / file.filename(), Durability::cached);
        }
    });
}

double secondsOfRun(const Photographs& photographs,
                    const std::shared_ptr<BirdIdentifying>& identifier, unsigned workers) {
    const testing::TempFolder destination;
    SortEngine engine(identifier, std::make_shared<JobController>(), Files::system(), workers);
    SortEngine::RunInput input;
    input.paths = photographs.files();
    input.destination = destination.path();
    return secondsOf([&] {
        auto events = engine.run(std::move(input));
        while (events.next()) {
        }
    });
}

void wholeRun(benchmark::State& state) {
    const Photographs photographs(photographCount);
    const auto identifier = std::make_shared<BirdIdentifier>(
        ConfidencePolicy(), std::make_shared<NoSpeciesPrior>(), std::nullopt);
    double parts = 0;
    double plainLoop = 0;
    double run = 0;
    for (auto _ : state) {
        parts += secondsOfParts(photographs, *identifier);
        plainLoop += secondsOfRun(photographs, identifier, 0);
        const double seconds = secondsOfRun(photographs, identifier, SortEngine::defaultWorkers());
        run += seconds;
        state.SetIterationTime(seconds);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(photographCount));
    state.counters["run/parts"] = run / parts;
    state.counters["plain_loop/parts"] = plainLoop / parts;
}
BENCHMARK(wholeRun)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);

}  // namespace
}  // namespace ornivo::benchmarks
