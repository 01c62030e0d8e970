#pragma once

#include "platform/Bitmap.h"
#include "vocabulary/BirdIdentifierError.h"

namespace ornivo {

/// Pixels that each side of an image needs at least for a bird to be told.
inline constexpr int smallestIdentifiableSide = 224;

/// Raises `BirdIdentifierError::imageTooSmall` for an image with a side below that.
inline void requireIdentifiableSize(const Bitmap& image) {
    if (image.width() < smallestIdentifiableSide || image.height() < smallestIdentifiableSide) {
        throw BirdIdentifierError::imageTooSmall();
    }
}

}  // namespace ornivo
