#pragma once

#include <filesystem>
#include <string>

#include "support/RawFiles.h"

namespace ornivo::benchmarks {

/// A RAW file of 24 megapixels as cameras of the kind make them: with the pictures that they put
/// in, of the sizes that they have there, and 25 MB of sensor's data that nobody can develop.
std::string rawPhotograph(testing::RawKind kind);

}  // namespace ornivo::benchmarks
