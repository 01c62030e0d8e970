#pragma once

#include <memory>

#include "vocabulary/BirdIdentifying.h"

namespace ornivo::cli {

/// The identifier that ships with the program, with all that is known of places and seasons.
/// Where it can't work, each use of it raises the reason.
std::shared_ptr<BirdIdentifying> bundledIdentifier();

}  // namespace ornivo::cli
