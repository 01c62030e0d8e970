#pragma once

#include <cstddef>
#include <filesystem>
#include <vector>

#include "platform/Bitmap.h"
#include "support/TempFolder.h"

namespace ornivo::benchmarks {

/// A scene with soft shapes and grain, so that it is coded and decoded no faster than photographs.
Bitmap detailedScene(int width, int height);

/// JPEG files as a camera makes them: 24 megapixels (6000 × 4000), with detail everywhere so that
/// they decode no faster than photographs, and with day, position and ISO. They go with the object.
class Photographs {
public:
    explicit Photographs(std::size_t count);

    const std::vector<std::filesystem::path>& files() const { return files_; }

private:
    testing::TempFolder folder_;
    std::vector<std::filesystem::path> files_;
};

}  // namespace ornivo::benchmarks
