#include "identification/MockBirdIdentifier.h"

#include <array>
#include <cstddef>

#include "identification/ImageSizeFloor.h"

namespace ornivo {
namespace {

struct Row {
    const char* label;
    double confidence;
};

/// By mode, the best first.
constexpr std::array<std::array<Row, 3>, 3> answers{{
    {{{"BALD EAGLE", 0.92}, {"GOLDEN EAGLE", 0.04}, {"OSPREY", 0.02}}},
    {{{"HOUSE SPARROW", 0.32}, {"SONG SPARROW", 0.21}, {"WHITE CROWNED SPARROW", 0.18}}},
    {{{"MALLARD DUCK", 0.51}, {"TEAL DUCK", 0.42}, {"WOOD DUCK", 0.05}}},
}};

}  // namespace

IdentifiedSpecies MockBirdIdentifier::identify(const Bitmap& image, std::uint32_t,
                                               const std::optional<PhotoLocation>&) {
    requireIdentifiableSize(image);
    IdentifiedSpecies species;
    for (const Row& row : answers[static_cast<std::size_t>(mode_)]) {
        species.topK.push_back({row.label, row.confidence});
    }
    species.top = species.topK.front();
    return species;
}

}  // namespace ornivo
