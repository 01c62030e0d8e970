#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "media/SpaceEstimate.h"
#include "platform/VolumeInfo.h"

/// Foresees before a run whether its copies will find room.
namespace ornivo::SpaceEstimator {

/// The forecast for copying so many bytes from one folder to another. A folder that is still
/// missing is judged by the nearest one above it that is there. Absent when a volume can't be
/// looked at.
std::optional<SpaceEstimate> estimate(std::int64_t photographBytes,
                                      const std::filesystem::path& source,
                                      const std::filesystem::path& destination);

/// The forecast by what is known of the two volumes.
SpaceEstimate estimate(std::int64_t photographBytes, const VolumeInfo& source,
                       const VolumeInfo& destination);

/// Whether a copy from one folder to the other shares its storage with the original.
bool willClone(const std::filesystem::path& source, const std::filesystem::path& destination);

}  // namespace ornivo::SpaceEstimator
