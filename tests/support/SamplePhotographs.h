#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/Bitmap.h"

namespace ornivo::testing {

/// A sample photograph with what it shows.
struct SamplePhotograph {
    /// The file's name.
    std::string name;
    Bitmap picture;
    std::uint32_t orientation;
    /// The raw label of its species, whether the classifier knows it or not.
    std::string species;
    /// What the network answers to the photograph as its making prepares it: the best label and
    /// its confidence.
    std::string referenceLabel;
    double referenceConfidence;
};

/// Calls `take` for each sample photograph, decoded for the classifier, in the order of their
/// names. Answers how many there were: none where the samples are not beside the checkout.
std::size_t eachSamplePhotograph(const std::function<void(const SamplePhotograph&)>& take);

/// Where a small picture lies in a scene, in pixels.
struct Corner {
    int left;
    int top;
};

/// Sides in pixels of a scene, as large as the classifier is shown pictures, and of what lies in
/// it.
constexpr int sceneSide = 640;
constexpr int smallSide = sceneSide / 4;

/// A scene: the centre square of `ground`, and on it that of `picture` at a quarter of the size.
/// Both stand upright.
Bitmap laidSmall(const Bitmap& picture, const Bitmap& ground, Corner corner);

}  // namespace ornivo::testing
