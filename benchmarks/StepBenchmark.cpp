// What each step costs by itself: stills decoded and images classified a second.

#include <benchmark/benchmark.h>

#include <vector>

#include "benchmarks/Photographs.h"
#include "identification/BirdIdentifier.h"
#include "identification/NoSpeciesPrior.h"
#include "media/ImageDecoder.h"
#include "platform/BitmapTransforms.h"
#include "support/SamplePhotographs.h"

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

/// What the classifier is shown: photographs decoded for it, all upright.
using Pictures = std::vector<Bitmap>;

/// The sample photographs; a made picture without a bird where they are not beside the checkout.
const Pictures& samples() {
    static const Pictures pictures = [] {
        Pictures result;
        testing::eachSamplePhotograph([&](const testing::SamplePhotograph& sample) {
            result.push_back(upright(sample.picture, sample.orientation));
        });
        if (result.empty()) {
            result.push_back(ImageDecoder::decode(photograph(), classifierSide, false)->image);
        }
        return result;
    }();
    return pictures;
}

/// The samples at a quarter of their size in the middle of one another, so that most birds are too
/// small for one look.
const Pictures& smallBirds() {
    static const Pictures pictures = [] {
        const Pictures& all = samples();
        constexpr int margin = (testing::sceneSide - testing::smallSide) / 2;
        constexpr testing::Corner middle{margin, margin};
        Pictures result;
        for (std::size_t i = 0; i < all.size(); ++i) {
            result.push_back(testing::laidSmall(all[i], all[(i + 1) % all.size()], middle));
        }
        return result;
    }();
    return pictures;
}

/// The mean over the pictures: each is classified in turn, until all have been as often.
void classify(benchmark::State& state, const Pictures& pictures) {
    BirdIdentifier identifier({}, std::make_shared<NoSpeciesPrior>(), std::nullopt);
    for (auto _ : state) {
        for (const Bitmap& picture : pictures) {
            benchmark::DoNotOptimize(identifier.identify(picture));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(pictures.size()));
}

void classifyImage(benchmark::State& state) {
    classify(state, samples());
}
BENCHMARK(classifyImage)->Unit(benchmark::kMillisecond)->UseRealTime()->Threads(1)->ThreadPerCpu();

void classifySmallBird(benchmark::State& state) {
    classify(state, smallBirds());
}
BENCHMARK(classifySmallBird)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace ornivo::benchmarks
