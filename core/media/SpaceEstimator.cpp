#include "media/SpaceEstimator.h"

#include <utility>

#include "platform/CloneProbe.h"
#include "platform/NearestExisting.h"

namespace ornivo::SpaceEstimator {
namespace {

namespace fs = std::filesystem;
using Verdict = SpaceEstimate::Verdict;

constexpr std::int64_t comfortableSpare = 2'000'000'000;

/// The volumes of a copy's two ends.
struct Ends {
    VolumeInfo source;
    VolumeInfo destination;
};

/// Absent when a volume can't be looked at. Where the ends are one volume, what it says of these
/// very folders counts: on a btrfs some files are kept from sharing.
std::optional<Ends> endsOf(const fs::path& source, const fs::path& destination) {
    const fs::path from = nearestExisting(source);
    const fs::path to = nearestExisting(destination);
    auto sourceVolume = volumeOf(from);
    auto destinationVolume = volumeOf(to);
    if (!sourceVolume || !destinationVolume) return std::nullopt;
    if (sourceVolume->identity == destinationVolume->identity) {
        destinationVolume->supportsCloning =
            clonesWhenAsked(from, to).value_or(destinationVolume->supportsCloning);
    }
    return Ends{*std::move(sourceVolume), *std::move(destinationVolume)};
}

bool clones(const VolumeInfo& source, const VolumeInfo& destination) {
    return source.identity == destination.identity && destination.supportsCloning;
}

Verdict verdictOn(std::int64_t required, std::int64_t available) {
    if (available < required) return Verdict::doesNotFit;
    return available - required < comfortableSpare ? Verdict::tight : Verdict::fits;
}

}  // namespace

std::optional<SpaceEstimate> estimate(std::int64_t photographBytes, const fs::path& source,
                                      const fs::path& destination) {
    const auto ends = endsOf(source, destination);
    if (!ends) return std::nullopt;
    return estimate(photographBytes, ends->source, ends->destination);
}

SpaceEstimate estimate(std::int64_t photographBytes, const VolumeInfo& source,
                       const VolumeInfo& destination) {
    const std::int64_t available = destination.availableBytes;
    if (clones(source, destination)) {
        return {photographBytes, 0, available, destination.name, Verdict::clones};
    }
    return {photographBytes, photographBytes, available, destination.name,
            verdictOn(photographBytes, available)};
}

bool willClone(const fs::path& source, const fs::path& destination) {
    const auto ends = endsOf(source, destination);
    return ends && clones(ends->source, ends->destination);
}

}  // namespace ornivo::SpaceEstimator
