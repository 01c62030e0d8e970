#include <algorithm>
#include <array>
#include <set>

#include "platform/ExifFacts.h"
#include "platform/RawContainerKinds.h"

namespace ornivo {
namespace {

namespace tag {
constexpr std::uint16_t width = 0x0100;
constexpr std::uint16_t height = 0x0101;
constexpr std::uint16_t compression = 0x0103;
constexpr std::uint16_t photometric = 0x0106;
constexpr std::uint16_t stripOffsets = 0x0111;
constexpr std::uint16_t stripLengths = 0x0117;
constexpr std::uint16_t tileOffsets = 0x0144;
constexpr std::uint16_t tileLengths = 0x0145;
constexpr std::uint16_t subDirectories = 0x014A;
constexpr std::uint16_t jpegOffset = 0x0201;
constexpr std::uint16_t jpegLength = 0x0202;
constexpr std::uint16_t profile = 0x8773;
constexpr std::uint16_t cr2Slices = 0xC640;
constexpr std::uint16_t dngVersion = 0xC612;
constexpr std::uint16_t dngCropSize = 0xC620;
constexpr std::uint16_t dngPreviewColours = 0xC71A;
// Panasonic's own, in the first directory.
constexpr std::uint16_t sensorTop = 0x0004;
constexpr std::uint16_t sensorLeft = 0x0005;
constexpr std::uint16_t sensorBottom = 0x0006;
constexpr std::uint16_t sensorRight = 0x0007;
constexpr std::array<std::uint16_t, 2> pictures{0x002E, 0x0127};
}  // namespace tag

/// What stands where TIFF has 42. Panasonic's number tells its kind, and so do Olympus' letters.
constexpr std::uint16_t plainKind = 42;
constexpr std::uint16_t panasonicKind = 0x0055;
constexpr std::array<std::uint16_t, 3> olympusKinds{0x4F52, 0x5352, 0x5533};

/// Goes through the directories of one file.
class Reader {
public:
    Reader(const ByteSource& source, const TiffStructure& structure)
        : source_(source), structure_(structure) {}

    std::optional<RawContainer> read() {
        const bool isOlympus =
            std::ranges::find(olympusKinds, structure_.kind()) != olympusKinds.end();
        isRaw_ = isOlympus || structure_.kind() == panasonicKind;
        if (!isRaw_ && structure_.kind() != plainKind) return std::nullopt;
        readChain(structure_.first());
        if (isOlympus && !container_.frame) container_.frame = first_;
        return isRaw_ ? std::optional(std::move(container_)) : std::nullopt;
    }

private:
    void readChain(std::uint32_t offset) {
        while (offset != 0) {
            const auto directory = next(offset);
            if (!directory) return;
            readDirectory(*directory);
            offset = directory->next;
        }
    }

    /// The directory at an offset, but none twice, and not endlessly many.
    std::optional<TiffEntries> next(std::uint32_t offset) {
        constexpr std::size_t mostDirectories = 64;
        if (visited_.size() >= mostDirectories || !visited_.insert(offset).second) return {};
        return structure_.directory(offset);
    }

    void readDirectory(const TiffEntries& directory) {
        const bool isFirst = visited_.size() == 1;
        if (isFirst) readFirst(directory);
        if (directory.find(tag::dngVersion) || directory.find(tag::cr2Slices)) isRaw_ = true;
        if (holdsSensorData(directory))
            readSensorDirectory(directory);
        else if (holdsPicture(directory))
            offerPictures(directory);
        if (const auto exif = structure_.number(directory, tiffTag::exif)) readExif(*exif);
        readSubDirectories(directory);
    }

    void readFirst(const TiffEntries& directory) {
        container_.orientation = orientationIn(structure_, directory);
        first_ = sizeIn(structure_, directory, tag::width, tag::height);
        if (structure_.kind() == panasonicKind) readPanasonic(directory);
    }

    bool holdsSensorData(const TiffEntries& directory) const {
        constexpr std::uint32_t colourFilterArray = 32803;
        constexpr std::uint32_t linearRaw = 34892;
        const auto photometric = structure_.number(directory, tag::photometric);
        return photometric == colourFilterArray || photometric == linearRaw;
    }

    /// Beside its pictures a DNG may hold masks and depths of the same size. Makers' own
    /// directories often don't tell what they hold.
    bool holdsPicture(const TiffEntries& directory) const {
        // Grey from white, grey from black, RGB and YCbCr.
        constexpr std::array<std::uint32_t, 4> pictures{0, 1, 2, 6};
        const auto photometric = structure_.number(directory, tag::photometric);
        return !photometric || std::ranges::find(pictures, *photometric) != pictures.end();
    }

    /// Of several, such as those of a DNG with a smaller copy, the largest counts.
    void readSensorDirectory(const TiffEntries& directory) {
        isRaw_ = true;
        const auto frame = sizeIn(structure_, directory, tag::width, tag::height);
        if (!frame || (container_.frame && container_.frame->width >= frame->width)) return;
        container_.frame = frame;
        if (const TiffEntry* crop = directory.find(tag::dngCropSize)) {
            const auto size = structure_.numbers(*crop, 2);
            if (size.size() == 2) setPicture(size[0], size[1]);
        }
    }

    void setPicture(std::uint32_t width, std::uint32_t height) {
        constexpr std::uint32_t most = 100'000;
        if (width == 0 || height == 0 || width > most || height > most) return;
        container_.picture = {static_cast<int>(width), static_cast<int>(height)};
    }

    void readPanasonic(const TiffEntries& directory) {
        const auto number = [&](std::uint16_t tag) {
            return structure_.number(directory, tag).value_or(0);
        };
        const std::uint32_t left = number(tag::sensorLeft);
        const std::uint32_t right = number(tag::sensorRight);
        const std::uint32_t top = number(tag::sensorTop);
        const std::uint32_t bottom = number(tag::sensorBottom);
        if (right > left && bottom > top) setPicture(right - left, bottom - top);
        for (const std::uint16_t tag : tag::pictures) {
            const TiffEntry* picture = directory.find(tag);
            if (picture) offer({picture->valueAt, picture->count}, directory);
        }
    }

    void readExif(std::uint32_t offset) {
        const auto exif = next(offset);
        if (!exif) return;
        const ExifFacts facts = exifFactsIn(structure_, *exif);
        if (facts.size && !container_.picture) container_.picture = facts.size;
        if (facts.colours != ColourSpace::unknown) container_.colours = facts.colours;
        takeMakerNote(source_, structure_, *exif, container_);
    }

    void readSubDirectories(const TiffEntries& directory) {
        constexpr std::uint32_t most = 16;
        const TiffEntry* entry = directory.find(tag::subDirectories);
        if (!entry) return;
        for (const std::uint32_t offset : structure_.numbers(*entry, most)) readChain(offset);
    }

    void offerPictures(const TiffEntries& directory) {
        constexpr std::array<std::uint32_t, 2> jpegCompressions{6, 7};
        const auto offset = structure_.number(directory, tag::jpegOffset);
        const auto length = structure_.number(directory, tag::jpegLength);
        if (offset && length) offer({structure_.placeOf(*offset), *length}, directory);
        const auto compression = structure_.number(directory, tag::compression).value_or(0);
        if (std::ranges::find(jpegCompressions, compression) == jpegCompressions.end()) return;
        offerOnlyPiece(directory, tag::stripOffsets, tag::stripLengths);
        offerOnlyPiece(directory, tag::tileOffsets, tag::tileLengths);
    }

    /// Pieces of a picture in several are no JPEGs of the whole.
    void offerOnlyPiece(const TiffEntries& directory, std::uint16_t offsets,
                        std::uint16_t lengths) {
        const TiffEntry* pieces = directory.find(offsets);
        if (!pieces || pieces->count != 1) return;
        const auto offset = structure_.number(directory, offsets);
        const auto length = structure_.number(directory, lengths);
        if (offset && length) offer({structure_.placeOf(*offset), *length}, directory);
    }

    void offer(ByteRange range, const TiffEntries& directory) {
        EmbeddedJpeg wanted{.range = range, .size = {}};
        wanted.colours = previewColours(directory);
        const TiffEntry* profile = directory.find(tag::profile);
        if (profile) wanted.profile = {profile->valueAt, profile->count};
        offerPicture(source_, wanted, container_);
    }

    /// DNG 1.2, "PreviewColorSpace".
    ColourSpace previewColours(const TiffEntries& directory) const {
        switch (structure_.number(directory, tag::dngPreviewColours).value_or(0)) {
            case 2:
                return ColourSpace::sRGB;
            case 3:
                return ColourSpace::adobeRGB;
            case 4:
                return ColourSpace::proPhoto;
            default:
                return ColourSpace::unknown;
        }
    }

    const ByteSource& source_;
    const TiffStructure& structure_;
    std::set<std::uint32_t> visited_;
    RawContainer container_;
    /// The size that the first directory tells.
    std::optional<PixelSize> first_;
    bool isRaw_ = false;
};

}  // namespace

std::optional<RawContainer> readRawTiff(const ByteSource& source) {
    const auto structure = TiffStructure::withHeader(source, 0);
    return structure ? Reader(source, *structure).read() : std::nullopt;
}

}  // namespace ornivo
