#include "identification/EditDistance.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

#include "platform/Text.h"

namespace ornivo {

std::size_t boundedEditDistance(std::string_view a, std::string_view b, std::size_t bound) {
    const auto from = characters(a);
    const auto to = characters(b);
    const std::size_t tooFar = bound + 1;
    const std::size_t longer = std::max(from.size(), to.size());
    if (longer - std::min(from.size(), to.size()) > bound) return tooFar;

    std::vector<std::size_t> above(to.size() + 1);
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(above.begin(), above.end(), std::size_t{0});
    for (std::size_t i = 1; i <= from.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = above[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, above[j] + 1, row[j - 1] + 1});
        }
        if (std::ranges::min(row) > bound) return tooFar;
        std::swap(above, row);
    }
    return above.back();
}

}  // namespace ornivo
