#pragma once

#include <string>
#include <string_view>

#include "vocabulary/PhotoLocation.h"

namespace ornivo::cli {

/// A region that stands for where photographs were taken.
struct AssumedPlace {
    /// The middle of the region.
    PhotoLocation location;
    /// What was understood, as a sentence for the user.
    std::string note;
};

/// The region with an id, or the one in which a typed place lies. Raises `UsageError` when there is
/// none.
AssumedPlace resolveAssumedPlace(std::string_view regionOrPlace);

}  // namespace ornivo::cli
