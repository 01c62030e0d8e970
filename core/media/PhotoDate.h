#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>

#include "media/PhotoMetadata.h"
#include "platform/Files.h"
#include "platform/ImageProperties.h"

/// The moment of capture, on the camera's own clock: what a camera writes knows no time zone, and
/// none is applied.
namespace ornivo::PhotoDate {

/// The capture day, "yyyy-MM-dd", from the characters as the camera wrote them.
std::optional<std::string> dateString(const ImageProperties& properties);

/// The capture time in whole seconds, fit for differences. Absent unless it is a time of day; the
/// length of the month is not looked at.
std::optional<std::int64_t> captureSecond(const ImageProperties& properties);

/// The day to file a photograph under, "yyyy-MM-dd": the capture day, or else the day of its last
/// change, or else of `now`, these two in the system's time zone.
std::string string(const PhotoMetadata& metadata, const std::filesystem::path& url,
                   const Files& files, std::time_t now = std::time(nullptr));

/// The same for a file whose metadata has not been read.
std::string string(const std::filesystem::path& url, const Files& files,
                   std::time_t now = std::time(nullptr));

}  // namespace ornivo::PhotoDate
