#pragma once

#include <cstdint>
#include <filesystem>

#include "platform/VipsImages.h"

namespace ornivo {

/// Opens a TIFF file that keeps each colour in tiles of its own, the one kind of TIFF that libvips
/// does not read: 8 bits a band, as stored, transparent parts black, with its profile. Null for any
/// other kind, for a broken file, and for one of more pixels than `maxPixels`.
VipsImageHandle openTiledPlanes(const std::filesystem::path& file, std::int64_t maxPixels);

}  // namespace ornivo
