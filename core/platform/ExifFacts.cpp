#include "platform/ExifFacts.h"

namespace ornivo {
namespace {

constexpr std::uint16_t colourSpaceTag = 0xA001;
constexpr std::uint16_t widthTag = 0xA002;
constexpr std::uint16_t heightTag = 0xA003;
constexpr std::uint16_t interoperabilityTag = 0xA005;
constexpr std::uint16_t interoperabilityIndexTag = 0x0001;

bool isAdobeByInteroperability(const TiffStructure& structure, const TiffEntries& exif) {
    const auto at = structure.number(exif, interoperabilityTag);
    const auto directory = at ? structure.directory(*at) : std::nullopt;
    return directory && structure.text(*directory, interoperabilityIndexTag, 3) == "R03";
}

/// EXIF itself knows sRGB and "uncalibrated", which the index R03 of DCF 2.0 makes Adobe RGB; many
/// cameras write 2 for it.
ColourSpace coloursIn(const TiffStructure& structure, const TiffEntries& exif) {
    constexpr std::uint32_t sRGB = 1;
    constexpr std::uint32_t adobeRGB = 2;
    const auto told = structure.number(exif, colourSpaceTag);
    if (told == adobeRGB) return ColourSpace::adobeRGB;
    if (told == sRGB) return ColourSpace::sRGB;
    return isAdobeByInteroperability(structure, exif) ? ColourSpace::adobeRGB
                                                      : ColourSpace::unknown;
}

}  // namespace

std::uint32_t orientationIn(const TiffStructure& structure, const TiffEntries& directory) {
    const auto found = structure.number(directory, tiffTag::orientation);
    return found && *found >= 1 && *found <= 8 ? *found : 0;
}

ExifFacts exifFactsIn(const TiffStructure& structure, const TiffEntries& exif) {
    return {.orientation = 0,
            .colours = coloursIn(structure, exif),
            .size = sizeIn(structure, exif, widthTag, heightTag)};
}

std::optional<ExifFacts> readExifFacts(const ByteSource& source, std::uint64_t at) {
    const auto structure = TiffStructure::withHeader(source, at);
    const auto first = structure ? structure->directory(structure->first()) : std::nullopt;
    if (!first) return std::nullopt;
    ExifFacts facts;
    const auto exifAt = structure->number(*first, tiffTag::exif);
    const auto exif = exifAt ? structure->directory(*exifAt) : std::nullopt;
    if (exif) facts = exifFactsIn(*structure, *exif);
    facts.orientation = orientationIn(*structure, *first);
    return facts;
}

std::optional<PixelSize> sizeIn(const TiffStructure& structure, const TiffEntries& directory,
                                std::uint16_t widthTag, std::uint16_t heightTag) {
    constexpr std::uint32_t most = 100'000;
    const auto width = structure.number(directory, widthTag);
    const auto height = structure.number(directory, heightTag);
    if (!width || !height || *width == 0 || *height == 0) return std::nullopt;
    if (*width > most || *height > most) return std::nullopt;
    return PixelSize{static_cast<int>(*width), static_cast<int>(*height)};
}

}  // namespace ornivo
