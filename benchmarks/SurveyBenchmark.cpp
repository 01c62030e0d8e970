// What is asked of photographs beside a run: their positions before it, their quality on demand.

#include <benchmark/benchmark.h>

#include <nlohmann/json.hpp>

#include "benchmarks/Photographs.h"
#include "media/PhotoLocationSurveyor.h"
#include "media/PhotoQualityMeter.h"
#include "platform/StillDecoder.h"

namespace ornivo::benchmarks {
namespace {

void surveyLocations(benchmark::State& state) {
    constexpr std::size_t count = PhotoLocationSurveyor::defaultSampleLimit;
    const Photographs photographs(count);
    for (auto _ : state) {
        benchmark::DoNotOptimize(PhotoLocationSurveyor::survey(photographs.files()));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count));
}
BENCHMARK(surveyLocations)->Unit(benchmark::kMillisecond)->UseRealTime();

void measureQuality(benchmark::State& state) {
    const Photographs photographs(1);
    const auto still = decodeStill(photographs.files().front(), std::nullopt);
    for (auto _ : state) {
        benchmark::DoNotOptimize(PhotoQualityMeter::measure(still->bitmap, std::nullopt));
    }
}
BENCHMARK(measureQuality)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ornivo::benchmarks
