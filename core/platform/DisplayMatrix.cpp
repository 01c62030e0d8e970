#include "platform/DisplayMatrix.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace ornivo {
namespace {

struct Turn {
    /// The screen's columns are the picture's rows.
    bool swapsSides;
    /// The screen's columns, rows, count from the far end of what they show.
    bool mirrorsColumns;
    bool mirrorsRows;

    bool operator==(const Turn&) const = default;
};

/// By EXIF orientation, from 1.
constexpr std::array<Turn, 8> turns{{{false, false, false},
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
    const Turn turn{swaps, (swaps ? columnsByY : columnsByX) < 0, (swaps ? rowsByX : rowsByY) < 0};
    return static_cast<std::uint32_t>(std::ranges::find(turns, turn) - turns.begin()) + 1;
}

}  // namespace ornivo
