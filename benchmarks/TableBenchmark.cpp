// What the tables cost: reading them all at the start, and the prior for each image.

#include <benchmark/benchmark.h>

#include "credits/Credits.h"
#include "identification/BirdClassifierLabels.h"
#include "identification/PlaceGazetteer.h"
#include "identification/SeasonTable.h"
#include "platform/Resources.h"

namespace ornivo::benchmarks {
namespace {

void loadTables(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(SeasonTable::bundledCombinedPrior());
        benchmark::DoNotOptimize(PlaceGazetteer::bundled());
        benchmark::DoNotOptimize(Credits::fromJson(Resources::read("credits", "json").value()));
        benchmark::DoNotOptimize(BirdClassifierLabels::readCommonNames(
            Resources::find("bird_common_names", "json").value()));
    }
}
BENCHMARK(loadTables)->Unit(benchmark::kMillisecond);

/// All classes of the classifier, weighed for a place in several regions.
void weighByPlaceAndMonth(benchmark::State& state) {
    const auto prior = SeasonTable::bundledCombinedPrior();
    const IdentificationContext context(PhotoLocation::make(56, 10), 5);
    SpeciesPrior::Candidates candidates;
    for (const auto& [label, name] : BirdClassifierLabels::commonNames()) {
        candidates.push_back({label, 1.0 / static_cast<double>(candidates.size() + 1)});
    }
    for (auto _ : state) benchmark::DoNotOptimize(prior->adjusted(candidates, context));
}
BENCHMARK(weighByPlaceAndMonth)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ornivo::benchmarks
