#pragma once

#include <cstdint>
#include <span>

namespace ornivo {

/// The EXIF orientation, 1 to 8, that says the same as a clip's display matrix: nine numbers, row
/// by row, by which a row (x, y, 1), a place in the stored picture, is multiplied to give the place
/// on the screen. A turn between two right angles is taken for the nearer; a matrix that says
/// nothing is upright.
std::uint32_t orientationOf(std::span<const std::int32_t, 9> matrix);

}  // namespace ornivo
