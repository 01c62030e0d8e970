#pragma once

#include <optional>

#include "vocabulary/PhotoLocation.h"

namespace ornivo {

/// What is known of a shot apart from its pixels.
struct IdentificationContext {
    /// Where the shot was taken or is assumed to have been taken.
    std::optional<PhotoLocation> location;
    /// Calendar month 1 to 12.
    std::optional<int> month;

    /// Nothing is known.
    IdentificationContext() = default;

    /// A month outside 1 to 12 counts as not known.
    IdentificationContext(std::optional<PhotoLocation> where, std::optional<int> when)
        : location(where), month(when && *when >= 1 && *when <= 12 ? when : std::nullopt) {}

    bool operator==(const IdentificationContext&) const = default;
};

}  // namespace ornivo
