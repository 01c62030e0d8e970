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
    /// The answer of the network's makers: the best label and its confidence.
    std::string referenceLabel;
    double referenceConfidence;
};

/// Calls `take` for each sample photograph, decoded for the classifier, in the order of their
/// names. Answers how many there were: none where the samples are not beside the checkout.
std::size_t eachSamplePhotograph(const std::function<void(const SamplePhotograph&)>& take);

}  // namespace ornivo::testing
