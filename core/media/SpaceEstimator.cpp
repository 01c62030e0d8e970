#include "media/SpaceEstimator.h"

#include <system_error>

#include "platform/Paths.h"

namespace ornivo::SpaceEstimator {
namespace {

namespace fs = std::filesystem;
using Verdict = SpaceEstimate::Verdict;

constexpr std::int64_t comfortableSpare = 2'000'000'000;

std::optional<VolumeInfo> nearestVolume(const fs::path& folder) {
    std::error_code ignored;
    fs::path at = standardized(folder);
    while (!fs::exists(at, ignored)) {
        if (!at.has_relative_path()) return std::nullopt;
        at = at.parent_path();
    }
    return volumeOf(at);
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
    const auto from = nearestVolume(source);
    const auto to = nearestVolume(destination);
    if (!from || !to) return std::nullopt;
    return estimate(photographBytes, *from, *to);
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
    const auto from = nearestVolume(source);
    const auto to = nearestVolume(destination);
    return from && to && clones(*from, *to);
}

}  // namespace ornivo::SpaceEstimator
