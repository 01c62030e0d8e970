#include "platform/EmbeddedJpeg.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "platform/ExifFacts.h"
#include "platform/TiffStructure.h"

namespace ornivo {
namespace {

constexpr std::uint8_t startOfScan = 0xDA;
constexpr std::uint8_t application1 = 0xE1;
/// A picture has a dozen segments before its first scan; some hold their metadata in many more.
constexpr int mostSegments = 200;

/// Sequential and progressive pictures of eight bits, coded with Huffman's codes. A sensor's data
/// comes as 0xC3.
bool isFrameOfPicture(std::uint8_t marker) {
    return marker == 0xC0 || marker == 0xC1 || marker == 0xC2;
}

/// Other markers from 0xC0 to 0xCF begin a frame, but for these.
bool isOtherFrame(std::uint8_t marker) {
    constexpr std::array<std::uint8_t, 3> tables{0xC4, 0xC8, 0xCC};
    return marker >= 0xC0 && marker <= 0xCF && !isFrameOfPicture(marker) &&
           std::ranges::find(tables, marker) == tables.end();
}

std::uint32_t number(std::span<const std::uint8_t> bytes) {
    return static_cast<std::uint32_t>(bytes[0] << 8 | bytes[1]);
}

struct Segment {
    std::uint8_t marker;
    /// Behind the marker and the length.
    ByteRange contents;
};

/// The segment at a place; absent where none begins.
std::optional<Segment> segmentAt(const ByteSource& source, std::uint64_t at) {
    std::array<std::uint8_t, 4> head{};
    // The marker may have any number of fill bytes before it; a few are enough.
    for (int fill = 0; fill < 16; ++fill, ++at) {
        if (!source.read(at, head) || head[0] != 0xFF) return std::nullopt;
        if (head[1] == 0xFF) continue;
        const std::uint32_t length = number(std::span(head).subspan(2));
        if (length < 2) return std::nullopt;
        return Segment{head[1], {at + head.size(), length - 2}};
    }
    return std::nullopt;
}

/// The size in a frame's header: absent for other than eight bits in one or three colours.
std::optional<PixelSize> sizeInFrame(const ByteSource& source, const Segment& frame) {
    std::array<std::uint8_t, 6> head{};
    if (frame.contents.length < head.size() || !source.read(frame.contents.offset, head)) {
        return std::nullopt;
    }
    const auto bytes = std::span<const std::uint8_t>(head);
    const PixelSize size{static_cast<int>(number(bytes.subspan(3))),
                         static_cast<int>(number(bytes.subspan(1)))};
    const bool isPicture = head[0] == 8 && (head[5] == 1 || head[5] == 3);
    return isPicture && size.width > 0 && size.height > 0 ? std::optional(size) : std::nullopt;
}

void takeMetadata(const ByteSource& source, const Segment& segment, EmbeddedJpeg& jpeg) {
    constexpr std::array<std::uint8_t, 6> mark{'E', 'x', 'i', 'f', 0, 0};
    std::array<std::uint8_t, mark.size()> head{};
    if (!source.read(segment.contents.offset, head) || head != mark) return;
    const auto facts = readExifFacts(source, segment.contents.offset + mark.size());
    if (!facts) return;
    jpeg.colours = facts->colours;
    jpeg.orientation = facts->orientation;
}

}  // namespace

std::optional<EmbeddedJpeg> readEmbeddedJpeg(const ByteSource& source, ByteRange range) {
    std::array<std::uint8_t, 2> start{};
    if (!holds(source, range) || range.length < start.size()) return std::nullopt;
    if (!source.read(range.offset, start) || start[0] != 0xFF || start[1] != 0xD8) {
        return std::nullopt;
    }
    EmbeddedJpeg jpeg{.range = range, .size = {0, 0}};
    std::uint64_t at = range.offset + start.size();
    for (int i = 0; i < mostSegments; ++i) {
        const auto segment = segmentAt(source, at);
        if (!segment || segment->marker == startOfScan || isOtherFrame(segment->marker)) break;
        if (segment->marker == application1) takeMetadata(source, *segment, jpeg);
        if (isFrameOfPicture(segment->marker)) {
            const auto size = sizeInFrame(source, *segment);
            if (!size) break;
            jpeg.size = *size;
            return jpeg;
        }
        at = segment->contents.offset + segment->contents.length;
        if (at >= range.offset + range.length) break;
    }
    return std::nullopt;
}

}  // namespace ornivo
