#pragma once

#include <cstdint>
#include <span>

namespace ornivo::testing {

/// Reads the bytes as a RAW file and ends the process if the answer breaks what is promised of it:
/// pictures that lie within the file, shapes that make sense.
void feedRawContainer(std::span<const std::uint8_t> bytes);

}  // namespace ornivo::testing
