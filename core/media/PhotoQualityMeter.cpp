#include "media/PhotoQualityMeter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <span>
#include <vector>

namespace ornivo::PhotoQualityMeter {
namespace {

constexpr int smallestSide = 8;
constexpr int gridSide = 6;
constexpr double white = 255;
constexpr std::uint8_t highlightsFrom = 254;
constexpr std::uint8_t shadowsUpTo = 1;

int tileEdge(int width, int height) {
    constexpr int largestEdge = 96;
    constexpr int smallestEdge = 4;
    constexpr int smallestDivided = 23;
    const int side = std::min(width, height);
    return side > smallestDivided ? std::min(side / gridSide, largestEdge) : smallestEdge;
}

/// Where a tile begins so that it stands in the middle of its cell without sticking out.
int tileStart(std::int64_t side, std::int64_t cell, std::int64_t edge) {
    const std::int64_t middle = side * (2 * cell + 1) / (std::int64_t{2} * gridSide);
    return static_cast<int>(std::clamp<std::int64_t>(middle - edge / 2, 0, side - edge));
}

/// Luma with the weights of ITU-R BT.601, in 1/1000.
std::uint8_t grey(std::span<const std::uint8_t> pixel) {
    return static_cast<std::uint8_t>((299 * pixel[0] + 587 * pixel[1] + 114 * pixel[2] + 500) /
                                     1000);
}

/// A square of grey values from the picture, used again for each.
class Tile {
public:
    explicit Tile(int edge) : edge_(static_cast<std::size_t>(edge)), values_(edge_ * edge_) {}

    std::span<const std::uint8_t> values() const { return values_; }

    void take(const Bitmap& image, int left, int top) {
        const auto width = static_cast<std::size_t>(image.width());
        for (std::size_t y = 0; y < edge_; ++y) {
            const std::size_t first =
                (static_cast<std::size_t>(top) + y) * width + static_cast<std::size_t>(left);
            const auto row =
                image.pixels().subspan(first * Bitmap::channels, edge_ * Bitmap::channels);
            for (std::size_t x = 0; x < edge_; ++x) {
                values_[y * edge_ + x] = grey(row.subspan(x * Bitmap::channels, Bitmap::channels));
            }
        }
    }

    /// The variance of the Laplacian over the pixels that have four neighbours.
    double laplacianVariance() const {
        double sum = 0;
        double sumOfSquares = 0;
        for (std::size_t y = 1; y + 1 < edge_; ++y) {
            for (std::size_t x = 1; x + 1 < edge_; ++x) {
                const double laplacian = laplacianAt(y * edge_ + x) / white;
                sum += laplacian;
                sumOfSquares += laplacian * laplacian;
            }
        }
        const auto count = static_cast<double>((edge_ - 2) * (edge_ - 2));
        const double mean = sum / count;
        return std::max(sumOfSquares / count - mean * mean, 0.0);
    }

private:
    int laplacianAt(std::size_t i) const {
        return values_[i - edge_] + values_[i + edge_] + values_[i - 1] + values_[i + 1] -
               4 * values_[i];
    }

    std::size_t edge_;
    std::vector<std::uint8_t> values_;
};

/// What the tiles add up to.
struct Tally {
    std::vector<double> variances;
    double luminance = 0;
    double highlights = 0;
    double shadows = 0;
    double pixels = 0;

    void add(const Tile& tile) {
        variances.push_back(tile.laplacianVariance());
        for (const std::uint8_t value : tile.values()) {
            luminance += value;
            highlights += value >= highlightsFrom ? 1 : 0;
            shadows += value <= shadowsUpTo ? 1 : 0;
        }
        pixels += static_cast<double>(tile.values().size());
    }
};

/// The second-highest, so that no single tile decides the reading alone.
double secondHighest(std::vector<double> variances) {
    const auto second = variances.begin() + 1;
    std::ranges::nth_element(variances, second, std::greater{});
    return *second;
}

/// A number as an integer, cut off behind the point; absent for one that no integer can hold.
std::optional<std::int64_t> integer(const ImageProperties& value) {
    constexpr double largest = 9.2e18;
    if (!value.is_number()) return std::nullopt;
    if (value.is_number_float() && std::abs(value.get<double>()) > largest) return std::nullopt;
    return value.get<std::int64_t>();
}

std::optional<std::int64_t> isoIn(const std::optional<ImageProperties>& properties) {
    if (!properties) return std::nullopt;
    const auto exif = properties->find(property::exifGroup);
    if (exif == properties->end() || !exif->is_object()) return std::nullopt;
    const auto found = exif->find(property::exifIsoSpeedRatings);
    if (found == exif->end()) return std::nullopt;
    if (!found->is_array()) return integer(*found);
    const bool hasOnlyNumbers =
        std::ranges::all_of(*found, [](const auto& element) { return element.is_number(); });
    return !found->empty() && hasOnlyNumbers ? integer(found->front()) : std::nullopt;
}

}  // namespace

PhotoQuality measure(const Bitmap& image, const std::optional<ImageProperties>& properties) {
    PhotoQuality quality;
    quality.iso = isoIn(properties);
    const int width = image.width();
    const int height = image.height();
    if (width < smallestSide || height < smallestSide) return quality;
    const int edge = tileEdge(width, height);
    Tile tile(edge);
    Tally tally;
    for (int row = 0; row < gridSide; ++row) {
        for (int column = 0; column < gridSide; ++column) {
            tile.take(image, tileStart(width, column, edge), tileStart(height, row, edge));
            tally.add(tile);
        }
    }
    quality.sharpness = secondHighest(std::move(tally.variances));
    quality.meanLuminance = tally.luminance / tally.pixels / white;
    quality.clippedHighlights = tally.highlights / tally.pixels;
    quality.clippedShadows = tally.shadows / tally.pixels;
    return quality;
}

}  // namespace ornivo::PhotoQualityMeter
