#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace ornivo {

/// The JPEGs that a library finds in a RAW file, as they stand in it, in no special order. They
/// find some where `readRawContainer` doesn't look, in the notes of rarer makers, but take longer:
/// Exiv2 reads every preview to know its size, LibRaw knows one only and no new camera.
std::vector<std::vector<std::uint8_t>> previewsFoundByExiv2(const std::filesystem::path& file);
std::vector<std::vector<std::uint8_t>> previewsFoundByLibRaw(const std::filesystem::path& file);

}  // namespace ornivo
