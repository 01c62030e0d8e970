#include "media/PhotoLocationSurveyor.h"

#include <algorithm>
#include <cstddef>

#include "vocabulary/PhotoLocation.h"

namespace ornivo::PhotoLocationSurveyor {

PhotoLocationSurvey survey(std::span<const std::filesystem::path> files, int limit) {
    PhotoLocationSurvey survey(0, 0, static_cast<int>(files.size()));
    const int step = std::max(survey.total / std::max(limit, 1), 1);
    for (int i = 0; i < survey.total && survey.checked < limit; i += step) {
        if (PhotoLocation::fromEXIF(files[static_cast<std::size_t>(i)])) ++survey.withLocation;
        ++survey.checked;
    }
    return survey;
}

}  // namespace ornivo::PhotoLocationSurveyor
