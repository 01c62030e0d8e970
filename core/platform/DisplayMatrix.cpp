#include "platform/DisplayMatrix.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace ornivo {
namespace {

/// Where the screen shows a stored picture.
struct Placement {
    /// The screen's columns are the picture's rows.
    bool swapsSides;
    /// Along the screen's columns, rows, the picture is shown from its far end.
    bool reversesScreenColumns;
    bool reversesScreenRows;

    bool operator==(const Placement&) const = default;
};

/// By EXIF orientation, from 1.
constexpr std::array<Placement, 8> placements{{{false, false, false},
                                               {false, true, false},
                                               {false, true, true},
                                               {false, false, true},
                                               {true, false, false},
                                               {true, true, false},
                                               {true, true, true},
                                               {true, false, true}}};

}  // namespace

std::uint32_t orientationOf(std::span<const std::int32_t, 9> matrix) {
    const std::int64_t columnsByX = matrix[0];
    const std::int64_t rowsByX = matrix[1];
    const std::int64_t columnsByY = matrix[3];
    const std::int64_t rowsByY = matrix[4];
    const bool swaps =
        std::abs(rowsByX) + std::abs(columnsByY) > std::abs(columnsByX) + std::abs(rowsByY);
    const Placement placement{swaps, (swaps ? columnsByY : columnsByX) < 0,
                              (swaps ? rowsByX : rowsByY) < 0};
    return static_cast<std::uint32_t>(std::ranges::find(placements, placement) -
                                      placements.begin()) +
           1;
}

}  // namespace ornivo
