#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Bitmap.h"

namespace ornivo {

/// One class of a classifier and the share it gives an image.
struct Observation {
    std::string identifier;
    float confidence;
};

/// What tells classes of images apart. Used by one caller at a time.
class ImageClassifier {
public:
    virtual ~ImageClassifier() = default;

    /// The labels of all classes; empty when the model does not say.
    virtual std::vector<std::string> classLabels() const = 0;

    /// Every class for the centre square of the image, turned upright by its EXIF orientation
    /// first; the likeliest first, equals in the model's order. Raises `Error`.
    virtual std::vector<Observation> classify(const Bitmap& image, std::uint32_t orientation) = 0;
};

}  // namespace ornivo
