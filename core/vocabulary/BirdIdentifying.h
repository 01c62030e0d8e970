#pragma once

#include <cstdint>
#include <optional>

#include "platform/Bitmap.h"
#include "vocabulary/ConfidencePolicy.h"
#include "vocabulary/IdentificationContext.h"
#include "vocabulary/IdentifiedSpecies.h"
#include "vocabulary/PhotoLocation.h"

namespace ornivo {

/// What tells the bird in a picture. Implementers may be called from any thread.
///
/// `orientation` is the EXIF value 1 to 8 that says how the bitmap must be turned to stand
/// upright. A failure raises `Error`, most often a `BirdIdentifierError`.
class BirdIdentifying {
public:
    virtual ~BirdIdentifying() = default;

    /// The policy the identifier was made with.
    virtual ConfidencePolicy policy() const = 0;
    /// Whether a known place can change the answer.
    virtual bool usesLocation() const { return false; }
    /// Whether a known month can change the answer.
    virtual bool usesDate() const { return false; }

    virtual IdentifiedSpecies identify(const Bitmap& image, std::uint32_t orientation,
                                       const std::optional<PhotoLocation>& location) = 0;

    /// An identifier that makes nothing of the month leaves this as it is.
    virtual IdentifiedSpecies identify(const Bitmap& image, std::uint32_t orientation,
                                       const IdentificationContext& context) {
        return identify(image, orientation, context.location);
    }

    /// Nothing is known of the place.
    IdentifiedSpecies identify(const Bitmap& image, std::uint32_t orientation = 1) {
        return identify(image, orientation, std::optional<PhotoLocation>());
    }
};

}  // namespace ornivo
