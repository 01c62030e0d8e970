/// What is looked up while a person types, in lists far longer than those that ship today: with
/// each key, and in how much of the time that the screen has for one picture.
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include "app/presentation/NameSearch.h"
#include "app/presentation/PlaceAnswer.h"
#include "app/presentation/RosterModel.h"
#include "identification/SpeciesLookup.h"

namespace ornivo::benchmarks {
namespace {

constexpr double frameSeconds = 1.0 / 60;

std::string word(std::mt19937& random) {
    constexpr std::string_view letters = "aeiourstlnmkhd";
    std::string text;
    for (std::size_t length = 3 + random() % 6; length > 0; --length) {
        text += letters[random() % letters.size()];
    }
    text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

BirdClassifierLabels::CommonNames manySpecies() {
    std::mt19937 random(1);
    BirdClassifierLabels::CommonNames names;
    while (names.size() < 11000) {
        names.emplace(word(random) + '_' + word(random), word(random) + ' ' + word(random));
    }
    return names;
}

std::vector<std::string> manyPeople() {
    std::mt19937 random(2);
    std::vector<std::string> names(100000);
    for (std::string& name : names) name = word(random) + ' ' + word(random);
    return names;
}

/// Seconds of a task against those of one picture on the screen.
void countFrames(benchmark::State& state) {
    state.counters["frames"] = benchmark::Counter(
        frameSeconds, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void suggestSpecies(benchmark::State& state, const char* typed) {
    const BirdClassifierLabels::SpeciesLookup lookup(manySpecies());
    for (auto _ : state) benchmark::DoNotOptimize(lookup.search(typed, 60));
    countFrames(state);
}
BENCHMARK_CAPTURE(suggestSpecies, TwoLetters, "ra")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(suggestSpecies, NotFound, "ptarmigan")->Unit(benchmark::kMillisecond);

/// The names made ready, in the background.
void prepareRoster(benchmark::State& state) {
    const auto names = manyPeople();
    for (auto _ : state) {
        const app::NameSearch search(names);
        benchmark::DoNotOptimize(&search);
    }
    countFrames(state);
}
BENCHMARK(prepareRoster)->Unit(benchmark::kMillisecond);

void searchRoster(benchmark::State& state) {
    const auto names = manyPeople();
    app::RosterModel model(names);
    bool isLonger = false;
    for (auto _ : state) {
        isLonger = !isLonger;
        model.setSearch(isLonger ? "ri" : "r");
        benchmark::DoNotOptimize(model.count());
    }
    countFrames(state);
}
BENCHMARK(searchRoster)->Unit(benchmark::kMillisecond);

void resolvePlace(benchmark::State& state, const char* typed) {
    const auto places = PlaceGazetteer::bundled();
    const auto regions = RangeTable::bundled();
    for (auto _ : state) benchmark::DoNotOptimize(app::placeAnswer(typed, places, regions));
    countFrames(state);
}
BENCHMARK_CAPTURE(resolvePlace, Found, "Bangalore")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(resolvePlace, NotFound, "Xyzzyville")->Unit(benchmark::kMillisecond);

void openRegions(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(RangeTable::bundled());
    countFrames(state);
}
BENCHMARK(openRegions)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ornivo::benchmarks

BENCHMARK_MAIN();
