#pragma once

#include <QSettings>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "engine/SortEngine.h"
#include "media/FileScanner.h"
#include "media/PhotoLocationSurveyor.h"
#include "media/SpaceEstimator.h"
#include "platform/Files.h"
#include "vocabulary/BirdIdentifying.h"

namespace ornivo::app {

/// What the store works with. What is not given is the real thing.
struct AppServices {
    std::shared_ptr<BirdIdentifying> identifier;
    /// Outlives the store.
    QSettings* preferences = nullptr;
    std::shared_ptr<Files> files = Files::system();
    unsigned workers = SortEngine::defaultWorkers();

    /// These two are called on other threads, several calls at a time.
    std::function<FileScanner::Scan(const std::filesystem::path& folder)> scan = FileScanner::scan;
    std::function<PhotoLocationSurvey(const std::vector<std::filesystem::path>& files)> survey =
        [](const auto& photographs) { return PhotoLocationSurveyor::survey(photographs); };
    std::function<std::optional<SpaceEstimate>(std::int64_t photographBytes,
                                               const std::filesystem::path& source,
                                               const std::filesystem::path& sink)>
        estimate = [](std::int64_t bytes, const auto& source, const auto& sink) {
            return SpaceEstimator::estimate(bytes, source, sink);
        };
};

}  // namespace ornivo::app
