#pragma once

#include <optional>

namespace ornivo {

/// How many of a sample of photographs tell where they were taken.
struct PhotoLocationSurvey {
    PhotoLocationSurvey() = default;
    /// Without `totalFiles`, every file was looked at.
    PhotoLocationSurvey(int checkedFiles, int filesWithLocation,
                        std::optional<int> totalFiles = std::nullopt)
        : checked(checkedFiles),
          withLocation(filesWithLocation),
          total(totalFiles.value_or(checkedFiles)) {}

    /// Files looked at.
    int checked = 0;
    /// Of those, files with a position that can be used.
    int withLocation = 0;
    /// Files in the list.
    int total = 0;

    /// Whether files were looked at and none has a position.
    bool foundNone() const { return checked >= 1 && withLocation == 0; }
    /// Whether some files were not looked at.
    bool isPartial() const { return checked < total; }

    bool operator==(const PhotoLocationSurvey&) const = default;
};

}  // namespace ornivo
