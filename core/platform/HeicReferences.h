#pragma once

#include <cstdint>
#include <span>

namespace ornivo {

/// Makes readers overlook which picture a HEIC file's metadata belongs to. libheif before 1.17
/// refuses a whole file when metadata belongs to an item of a kind that it doesn't know, as in the
/// photographs of newer iPhones; for the pixels it doesn't matter. Bytes that are no HEIC file stay
/// as they are.
void dropMetadataReferences(std::span<std::uint8_t> heic);

}  // namespace ornivo
