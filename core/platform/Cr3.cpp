// Canon's CR3: the boxes of ISO 14496-12, with Canon's own inside, as Laurent Clévy described them.

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "platform/ExifFacts.h"
#include "platform/RawContainerKinds.h"

namespace ornivo {
namespace {

using namespace std::string_view_literals;

constexpr auto canonBox = "\x85\xC0\xB6\x87\x82\x0F\x11\xE0\x81\x11\xF4\xCE\x46\x2B\x6A\x48"sv;
constexpr auto previewBox = "\xEA\xF4\x2B\x5E\x1C\x98\x4B\x88\xB9\xFB\xB7\xDC\x40\x6E\x4D\x16"sv;
constexpr std::size_t idSize = 16;

std::uint64_t bigEndian(std::span<const std::uint8_t> bytes) {
    std::uint64_t value = 0;
    for (const std::uint8_t byte : bytes) value = value << 8 | byte;
    return value;
}

/// A number of at most eight bytes at a place; 0 when it isn't there.
std::uint64_t numberAt(const ByteSource& source, std::uint64_t at, std::size_t length) {
    std::array<std::uint8_t, 8> bytes{};
    const auto number = std::span(bytes).first(length);
    return source.read(at, number) ? bigEndian(number) : 0;
}

bool isAt(const ByteSource& source, std::uint64_t at, std::string_view text) {
    const auto bytes = bytesOf(source, {at, text.size()});
    const auto isSame = [](std::uint8_t byte, char letter) {
        return byte == static_cast<std::uint8_t>(letter);
    };
    return bytes && std::ranges::equal(*bytes, text, isSame);
}

struct Box {
    std::uint32_t type;
    ByteRange contents;

    /// Whether the type is of these four letters.
    bool is(std::string_view letters) const {
        const std::array<std::uint8_t, 4> bytes{
            static_cast<std::uint8_t>(letters[0]), static_cast<std::uint8_t>(letters[1]),
            static_cast<std::uint8_t>(letters[2]), static_cast<std::uint8_t>(letters[3])};
        return type == bigEndian(bytes);
    }
};

/// The boxes that fill a range, one after the other. The last may claim more than is there.
std::vector<Box> boxesIn(const ByteSource& source, ByteRange range) {
    constexpr std::size_t mostBoxes = 64;
    std::vector<Box> boxes;
    std::uint64_t at = range.offset;
    std::uint64_t left = range.length;
    while (left >= 8 && boxes.size() < mostBoxes) {
        std::uint64_t size = numberAt(source, at, 4);
        std::uint64_t header = 8;
        if (size == 0) size = left;
        if (size == 1) {
            size = numberAt(source, at + 8, 8);
            header = 16;
        }
        if (size < header || left < header) break;
        size = std::min(size, left);
        const auto type = static_cast<std::uint32_t>(numberAt(source, at + 4, 4));
        boxes.push_back({type, {at + header, size - header}});
        at += size;
        left -= size;
    }
    return boxes;
}

/// The first box of a type within a range.
std::optional<ByteRange> childOf(const ByteSource& source, ByteRange range, std::string_view type) {
    const auto boxes = boxesIn(source, range);
    const auto found = std::ranges::find_if(boxes, [&](const Box& box) { return box.is(type); });
    return found == boxes.end() ? std::nullopt : std::optional(found->contents);
}

ByteRange after(ByteRange range, std::uint64_t skipped) {
    const std::uint64_t step = std::min(skipped, range.length);
    return {range.offset + step, range.length - step};
}

class Reader {
public:
    explicit Reader(const ByteSource& source) : source_(source) {}

    std::optional<RawContainer> read() {
        for (const Box& box : boxesIn(source_, {0, source_.size()})) {
            if (box.is("moov")) readMovie(box.contents);
            const bool isPreview = box.is("uuid") && isAt(source_, box.contents.offset, previewBox);
            if (isPreview) readPreview(box.contents);
        }
        return std::move(container_);
    }

private:
    void readMovie(ByteRange movie) {
        for (const Box& box : boxesIn(source_, movie)) {
            if (box.is("trak")) readTrack(box.contents);
            const bool isCanons = box.is("uuid") && isAt(source_, box.contents.offset, canonBox);
            if (isCanons) readMetadata(after(box.contents, idSize));
        }
    }

    /// The metadata stand in four TIFF structures of one directory each, and a small picture
    /// beside them.
    void readMetadata(ByteRange metadata) {
        for (const Box& box : boxesIn(source_, metadata)) {
            if (box.is("THMB")) offerBehindHeader(box.contents);
            const auto structure = TiffStructure::withHeader(source_, box.contents.offset);
            const auto entries =
                structure ? structure->directory(structure->first()) : std::optional<TiffEntries>();
            if (!entries) continue;
            if (box.is("CMT1")) {
                container_.orientation = orientationIn(*structure, *entries);
                container_.frame = sizeIn(*structure, *entries, 0x0100, 0x0101);
            }
            if (box.is("CMT2")) {
                const ExifFacts facts = exifFactsIn(*structure, *entries);
                container_.picture = facts.size;
                if (facts.colours != ColourSpace::unknown) container_.colours = facts.colours;
            }
            if (box.is("CMT3")) takeCanonNote(*structure, *entries, container_);
        }
    }

    void readPreview(ByteRange preview) {
        constexpr std::uint64_t unknownNumbers = 8;
        const ByteRange boxes = after(preview, idSize + unknownNumbers);
        if (const auto found = childOf(source_, boxes, "PRVW")) offerBehindHeader(*found);
    }

    /// A few numbers stand before the picture: how many has changed between the cameras.
    void offerBehindHeader(ByteRange box) {
        constexpr std::uint64_t longestHeader = 32;
        for (std::uint64_t skipped = 0; skipped <= longestHeader; skipped += 2) {
            const ByteRange rest = after(box, skipped);
            if (!isAt(source_, rest.offset, "\xFF\xD8\xFF")) continue;
            return offerPicture(source_, {.range = rest, .size = {}}, container_);
        }
    }

    /// The first sample of a track, which is a JPEG of the full size in one of them.
    void readTrack(ByteRange track) {
        std::optional<ByteRange> table = track;
        for (const auto* type : {"mdia", "minf", "stbl"}) {
            if (table) table = childOf(source_, *table, type);
        }
        if (!table) return;
        const auto sizes = childOf(source_, *table, "stsz");
        const auto longOffsets = childOf(source_, *table, "co64");
        const auto offsets = childOf(source_, *table, "stco");
        if (!sizes || (!longOffsets && !offsets)) return;
        // Both tables begin with their version and end with a list, behind its length.
        const std::uint64_t offset = longOffsets ? numberAt(source_, longOffsets->offset + 8, 8)
                                                 : numberAt(source_, offsets->offset + 8, 4);
        std::uint64_t length = numberAt(source_, sizes->offset + 4, 4);
        if (length == 0) length = numberAt(source_, sizes->offset + 12, 4);
        offerPicture(source_, {.range = {offset, length}, .size = {}}, container_);
    }

    const ByteSource& source_;
    RawContainer container_;
};

}  // namespace

std::optional<RawContainer> readCr3(const ByteSource& source) {
    if (!isAt(source, 4, "ftypcrx ")) return std::nullopt;
    return Reader(source).read();
}

}  // namespace ornivo
