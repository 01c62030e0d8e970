#pragma once

#include <string_view>

#include "vocabulary/PhotoLocation.h"

namespace ornivo::cli {

/// A position written "51.5,-0.12": latitude and longitude in degrees, north and east positive.
/// Raises `UsageError` for anything else and for a place that isn't on the Earth.
PhotoLocation parsePosition(std::string_view text);

}  // namespace ornivo::cli
