#include "platform/RawContainer.h"

#include <algorithm>

#include "platform/RawContainerKinds.h"

namespace ornivo {

std::optional<RawContainer> readRawContainer(const ByteSource& source) {
    if (auto container = readCr3(source)) return container;
    return readRawTiff(source);
}

void offerPicture(const ByteSource& source, EmbeddedJpeg wanted, RawContainer& container) {
    // The most that any camera has is five.
    constexpr std::size_t mostPictures = 32;
    // Of a hundred megapixels at the best quality. It is read into memory.
    constexpr std::uint64_t longest = 200'000'000;
    if (container.pictures.size() >= mostPictures || wanted.range.length > longest) return;
    const auto isSame = [&](const EmbeddedJpeg& known) {
        return known.range.offset == wanted.range.offset;
    };
    if (std::ranges::any_of(container.pictures, isSame)) return;
    auto jpeg = readEmbeddedJpeg(source, wanted.range);
    if (!jpeg) return;
    if (jpeg->colours == ColourSpace::unknown) jpeg->colours = wanted.colours;
    jpeg->profile = wanted.profile;
    container.pictures.push_back(*jpeg);
}

void takeCanonNote(const TiffStructure& note, const TiffEntries& entries, RawContainer& container) {
    constexpr std::uint16_t colourSpaceTag = 0x00B4;
    constexpr std::uint32_t adobeRGB = 2;
    if (note.number(entries, colourSpaceTag) == adobeRGB) container.colours = ColourSpace::adobeRGB;
}

}  // namespace ornivo
