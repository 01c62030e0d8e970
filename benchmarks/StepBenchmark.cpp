// What each step costs by itself: stills decoded and images classified a second.

#include <benchmark/benchmark.h>

#include "benchmarks/Photographs.h"
#include "identification/BirdIdentifier.h"
#include "identification/NoSpeciesPrior.h"
#include "media/ImageDecoder.h"
#include "platform/BitmapTransforms.h"

namespace ornivo::benchmarks {
namespace {

constexpr int classifierSide = 640;

const std::filesystem::path& photograph() {
    static const Photographs photographs(1);
    return photographs.files().front();
}

void decodeStill(benchmark::State& state) {
    const auto& file = photograph();
    for (auto _ : state) {
        benchmark::DoNotOptimize(ImageDecoder::decode(file, classifierSide, false));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(decodeStill)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The road that decoding at a fraction of the size saves.
void decodeStillAtFullSize(benchmark::State& state) {
    const auto& file = photograph();
    for (auto _ : state) {
        const auto whole = ImageDecoder::decode(file, 1 << 20, false);
        benchmark::DoNotOptimize(scaled(whole->image, 640, 427));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(decodeStillAtFullSize)->Unit(benchmark::kMillisecond)->UseRealTime();

void classifyImage(benchmark::State& state) {
    BirdIdentifier identifier({}, std::make_shared<NoSpeciesPrior>(), std::nullopt);
    const auto decoded = ImageDecoder::decode(photograph(), classifierSide, false);
    for (auto _ : state) {
        benchmark::DoNotOptimize(identifier.identify(decoded->image));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(classifyImage)->Unit(benchmark::kMillisecond)->UseRealTime()->Threads(1)->ThreadPerCpu();

}  // namespace
}  // namespace ornivo::benchmarks
