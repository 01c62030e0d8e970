// A CR3, as its boxes are described by those who found them out.

#include <string>
#include <vector>

#include "support/RawFiles.h"
#include "support/TiffBytes.h"

namespace ornivo::testing {

std::string cr3File(const std::vector<RawPreview>& previews, const RawOptions& options);

namespace {

using namespace std::string_literals;

const std::string canonBox = "\x85\xC0\xB6\x87\x82\x0F\x11\xE0\x81\x11\xF4\xCE\x46\x2B\x6A\x48";
const std::string previewBox = "\xEA\xF4\x2B\x5E\x1C\x98\x4B\x88\xB9\xFB\xB7\xDC\x40\x6E\x4D\x16";

std::string big(std::uint64_t value, std::size_t length) {
    return numberBytes(value, length, true);
}

std::string box(const std::string& type, const std::string& contents) {
    return big(contents.size() + 8, 4) + type + contents;
}

/// A box under a size of 64 bits.
std::string longBox(const std::string& type, const std::string& contents) {
    return big(1, 4) + type + big(contents.size() + 16, 8) + contents;
}

std::string structure(const std::vector<TiffBytes::Field>& fields) {
    TiffBytes file("II\x2A\0\0\0\0\0"s, false);
    file.setFirst(file.directory(fields));
    return file.bytes();
}

std::string metadata(const RawOptions& options) {
    const PixelSize size = options.picture.value_or(options.sensor);
    std::vector<TiffBytes::Field> exif{
        TiffBytes::longs(0xA002, {static_cast<std::uint32_t>(size.width)}),
        TiffBytes::longs(0xA003, {static_cast<std::uint32_t>(size.height)})};
    if (options.dateTimeOriginal) {
        exif.push_back(TiffBytes::ascii(0x9003, *options.dateTimeOriginal));
    }
    TiffBytes second("II\x2A\0\0\0\0\0"s, false);
    if (options.adobe == AdobeMark::none) exif.push_back(TiffBytes::shorts(0xA001, {1}));
    if (options.adobe == AdobeMark::exif) exif.push_back(TiffBytes::shorts(0xA001, {2}));
    if (options.adobe == AdobeMark::interoperability) {
        const auto index = second.directory({TiffBytes::ascii(0x0001, "R03")});
        exif.push_back(TiffBytes::longs(0xA005, {index}));
    }
    second.setFirst(second.directory(exif));
    const std::string first =
        structure({TiffBytes::longs(0x0100, {static_cast<std::uint32_t>(options.sensor.width)}),
                   TiffBytes::longs(0x0101, {static_cast<std::uint32_t>(options.sensor.height)}),
                   TiffBytes::ascii(0x010F, "Canon"), TiffBytes::ascii(0x0110, "Canon EOS R999"),
                   TiffBytes::shorts(0x0112, {options.orientation})});
    const std::uint32_t colours = options.adobe == AdobeMark::makerNote ? 2 : 1;
    const std::string notes =
        structure({TiffBytes::shorts(0x0001, {0, 0}), TiffBytes::shorts(0x00B4, {colours})});
    return box("uuid",
               canonBox + box("CMT1", first) + box("CMT2", second.bytes()) + box("CMT3", notes));
}

/// A track of one sample.
std::string track(std::uint64_t offset, std::uint32_t length) {
    const std::string table =
        box("stsd", big(0, 4) + big(1, 4) + box("CRAW", std::string(78, '\0'))) +
        box("stsz", big(0, 4) + big(length, 4) + big(1, 4)) +
        box("co64", big(0, 4) + big(1, 4) + big(offset, 8));
    return box("trak", box("mdia", box("minf", box("stbl", table))));
}

std::string preview(const RawPreview& wanted) {
    const auto length = wanted.length.value_or(static_cast<std::uint32_t>(wanted.jpeg.size()));
    const std::string contents = big(0, 4) + big(1, 2) + big(1620, 2) + big(1080, 2) + big(1, 2) +
                                 big(length, 4) + wanted.jpeg;
    const std::string header = big(length + 24, 4) + "PRVW";
    return box("uuid", previewBox + big(0, 4) + big(1, 4) + header + contents);
}

}  // namespace

std::string cr3File(const std::vector<RawPreview>& previews, const RawOptions& options) {
    const auto jpegOf = [&](std::size_t slot) {
        return slot < previews.size() ? previews[slot] : RawPreview{};
    };
    const RawPreview full = jpegOf(1);
    const std::string data = full.jpeg + std::string(options.sensorBytes, '\x55');
    const auto head = [&](std::uint64_t dataAt) {
        const auto length = full.length.value_or(static_cast<std::uint32_t>(full.jpeg.size()));
        const std::uint64_t offset = full.offset ? std::uint64_t{*full.offset} : dataAt;
        return box("ftyp", "crx \0\0\0\1crx isom"s) +
               box("moov", metadata(options) + track(offset, length) +
                               track(dataAt + full.jpeg.size(),
                                     static_cast<std::uint32_t>(options.sensorBytes))) +
               (jpegOf(0).jpeg.empty() ? std::string() : preview(jpegOf(0)));
    };
    constexpr std::size_t longHeader = 16;
    return head(head(0).size() + longHeader) + longBox("mdat", data);
}

}  // namespace ornivo::testing
