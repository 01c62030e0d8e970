#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Bitmap.h"

namespace ornivo {

/// One class of a classifier and the share it gives an image.
struct Observation {
    std::string identifier;
    float confidence;
};

/// Where a classifier saw its subject, in parts of the side of the square it looked at: the centre
/// square of the upright picture, with its origin at the top left.
struct SubjectBox {
    float centreX = 0;
    float centreY = 0;
    /// The longer side of the subject.
    float side = 0;
    /// How surely there is a subject at all, 0 to 1.
    float score = 0;

    bool operator==(const SubjectBox&) const = default;
};

/// What a classifier has to say of one image.
struct ImageClassification {
    /// Every class, the likeliest first, equals in the model's order.
    std::vector<Observation> observations;
    /// Absent when the model doesn't tell.
    std::optional<SubjectBox> subject;
};

/// What tells classes of images apart. Used by one caller at a time.
class ImageClassifier {
public:
    virtual ~ImageClassifier() = default;

    /// The labels of all classes; empty when the model does not say.
    virtual std::vector<std::string> classLabels() const = 0;

    /// Looks at the centre square of the image, turned upright by its EXIF orientation first.
    /// Raises `Error`.
    virtual ImageClassification classify(const Bitmap& image, std::uint32_t orientation) = 0;
};

}  // namespace ornivo
