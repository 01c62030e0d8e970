#include "fuzz/RawContainerEntry.h"

#include <cstdlib>

#include "media/RawFraming.h"
#include "platform/RawContainer.h"

namespace ornivo::testing {
namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

bool isPositive(PixelSize size) {
    return size.width > 0 && size.height > 0;
}

void checkFramings(const EmbeddedJpeg& picture, const RawContainer& container) {
    const RawFraming::Shape shape{container.orientation == 0 ? 1 : container.orientation,
                                  container.picture, container.frame};
    const auto ways = RawFraming::framings(picture.size, shape);
    require(!ways.empty());
    for (const auto& [kept, orientation] : ways) {
        require(isPositive(kept) && orientation >= 1 && orientation <= 8);
        require(kept.width <= picture.size.width && kept.height <= picture.size.height);
    }
}

}  // namespace

void feedRawContainer(std::span<const std::uint8_t> bytes) {
    const MemoryBytes source(bytes);
    const auto container = readRawContainer(source);
    if (!container) return;
    require(container->orientation <= 8);
    require(!container->picture || isPositive(*container->picture));
    require(!container->frame || isPositive(*container->frame));
    for (const EmbeddedJpeg& picture : container->pictures) {
        require(isPositive(picture.size) && picture.orientation <= 8);
        require(bytesOf(source, picture.range).has_value());
        bytesOf(source, picture.profile);
        checkFramings(picture, *container);
    }
}

}  // namespace ornivo::testing
