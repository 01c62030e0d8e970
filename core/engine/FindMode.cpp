#include <algorithm>
#include <array>

#include "engine/FolderName.h"
#include "engine/SortEngine.h"
#include "engine/Warnings.h"
#include "identification/BirdClassifierLabels.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

/// A name without its differences of hyphens, underscores, case, accents and white space.
std::string normalised(std::string_view name) {
    const std::string words = replacing(replacing(name, '-', ' '), '_', ' ');
    return collapsingWhiteSpace(trimmed(foldCaseAndDiacritics(words)));
}

}  // namespace

bool SortEngine::matches(const IdentifiedSpecies& species, const BirdSpecies& target) {
    const std::array known{normalised(displayName(species)), normalised(species.topLabel())};
    const std::array wanted{normalised(target.commonName), normalised(target.scientificName)};
    return std::any_of(wanted.begin(), wanted.end(), [&](const std::string& name) {
        return !name.empty() && std::find(known.begin(), known.end(), name) != known.end();
    });
}

std::vector<std::string> SortEngine::placeFind(const fs::path& source,
                                               const std::vector<fs::path>& shotPartners,
                                               const fs::path& baseDest, const BirdSpecies& species,
                                               const SortOptions& options,
                                               const PhotoMetadata& metadata) {
    const fs::path target =
        makeTarget(source, baseDest / folderName(species.displayName()), options, metadata);
    const std::string sourceName = lastPathComponent(source);
    auto warnings = placeFile(source, resolveCollision(target / sourceName), options);
    for (const fs::path& partner : shotPartners) {
        const std::string name = lastPathComponent(partner);
        try {
            append(warnings, placeFile(partner, resolveCollision(target / name), options));
        } catch (const std::exception&) {
            warnings.push_back("Matched " + wellFormed(sourceName) + " but could not file " +
                               wellFormed(name));
        }
    }
    return warnings;
}

}  // namespace ornivo
