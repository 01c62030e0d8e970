// Containers as the TIFF/EP, EXIF and DNG specifications, and the published findings of others on
// what the makers added, have them.

#include "support/RawFiles.h"

#include <ostream>

#include "support/TempFolder.h"
#include "support/TiffBytes.h"

namespace ornivo::testing {

std::string cr3File(const std::vector<RawPreview>& previews, const RawOptions& options);

namespace {

using Field = TiffBytes::Field;

/// No reader has a decoder for it.
constexpr std::uint32_t unknownCompression = 60001;
constexpr std::uint32_t colourFilterArray = 32803;

std::uint32_t unsignedOf(int side) {
    return static_cast<std::uint32_t>(side);
}

bool isThere(const std::vector<RawPreview>& previews, std::size_t slot) {
    return slot < previews.size() && !previews[slot].jpeg.empty();
}

struct Told {
    std::uint32_t offset;
    std::uint32_t length;
};

/// Appends a JPEG. Answers what the file is to say of it.
Told appendPreview(TiffBytes& file, const RawPreview& preview) {
    const std::uint32_t at = file.append(preview.jpeg);
    return {preview.offset.value_or(at),
            preview.length.value_or(static_cast<std::uint32_t>(preview.jpeg.size()))};
}

std::vector<Field> exifFields(TiffBytes& file, const RawOptions& options) {
    const PixelSize size = options.picture.value_or(options.sensor);
    std::vector<Field> exif{TiffBytes::longs(0xA002, {unsignedOf(size.width)}),
                            TiffBytes::longs(0xA003, {unsignedOf(size.height)})};
    if (options.dateTimeOriginal) {
        exif.push_back(TiffBytes::ascii(0x9003, *options.dateTimeOriginal));
    }
    if (options.adobe == AdobeMark::exif) exif.push_back(TiffBytes::shorts(0xA001, {2}));
    if (options.adobe == AdobeMark::none) exif.push_back(TiffBytes::shorts(0xA001, {1}));
    if (options.adobe == AdobeMark::interoperability) {
        const auto index = file.directory({TiffBytes::ascii(0x0001, "R03")});
        exif.push_back(TiffBytes::shorts(0xA001, {0xFFFF}));
        exif.push_back(TiffBytes::longs(0xA005, {index}));
    }
    return exif;
}

/// The EXIF directory, with notes that have been written before.
std::uint32_t appendExif(TiffBytes& file, const RawOptions& options, std::uint32_t notesAt = 0) {
    auto exif = exifFields(file, options);
    constexpr std::uint32_t notesLength = 256;
    if (notesAt != 0) exif.push_back(TiffBytes::undefinedAt(0x927C, notesAt, notesLength));
    return file.directory(exif);
}

std::vector<Field> firstFields(std::string_view make, std::string_view model,
                               const RawOptions& options, std::uint32_t exif) {
    return {TiffBytes::ascii(0x010F, make), TiffBytes::ascii(0x0110, model),
            TiffBytes::shorts(0x0112, {options.orientation}), TiffBytes::longs(0x8769, {exif})};
}

std::uint32_t appendSensor(TiffBytes& file, const RawOptions& options) {
    const auto data = file.append(std::string(options.sensorBytes, '\x55'));
    return file.directory(
        {TiffBytes::longs(0x00FE, {0}),
         TiffBytes::longs(0x0100, {unsignedOf(options.sensor.width)}),
         TiffBytes::longs(0x0101, {unsignedOf(options.sensor.height)}),
         TiffBytes::shorts(0x0102, {14}), TiffBytes::shorts(0x0103, {unknownCompression}),
         TiffBytes::shorts(0x0106, {colourFilterArray}), TiffBytes::longs(0x0111, {data}),
         TiffBytes::shorts(0x0115, {1}),
         TiffBytes::longs(0x0116, {unsignedOf(options.sensor.height)}),
         TiffBytes::longs(0x0117, {static_cast<std::uint32_t>(options.sensorBytes)})});
}

std::uint32_t appendJpegDirectory(TiffBytes& file, const RawPreview& preview) {
    const Told told = appendPreview(file, preview);
    return file.directory({TiffBytes::longs(0x00FE, {1}), TiffBytes::shorts(0x0103, {6}),
                           TiffBytes::longs(0x0201, {told.offset}),
                           TiffBytes::longs(0x0202, {told.length})});
}

std::string nefFile(const std::vector<RawPreview>& previews, const RawOptions& options) {
    TiffBytes file(std::string("MM\0\x2A\0\0\0\0", 8), true);
    const auto notes = file.append(std::string("Nikon\0\2\x10\0\0MM\0\x2A\0\0\0\x08", 18));
    const std::uint32_t base = notes + 10;
    std::vector<Field> fields{TiffBytes::undefined(0x0001, "0210"), TiffBytes::longs(0x0011, {0})};
    if (options.adobe == AdobeMark::makerNote) fields.push_back(TiffBytes::shorts(0x001E, {2}));
    const auto noteDirectory = file.directory(fields, base);
    if (isThere(previews, 0)) {
        const Told told = appendPreview(file, previews[0]);
        const auto preview = file.directory({TiffBytes::shorts(0x0103, {6}),
                                             TiffBytes::longs(0x0201, {told.offset - base}),
                                             TiffBytes::longs(0x0202, {told.length})});
        file.setNumber(noteDirectory, 0x0011, preview - base);
    }
    std::vector<std::uint32_t> below;
    if (isThere(previews, 1)) below.push_back(appendJpegDirectory(file, previews[1]));
    below.push_back(appendSensor(file, options));
    auto first =
        firstFields("NIKON CORPORATION", "NIKON Z 999", options, appendExif(file, options, notes));
    first.push_back(TiffBytes::longs(0x014A, below));
    file.setFirst(file.directory(first));
    return file.bytes();
}

std::string arwFile(const std::vector<RawPreview>& previews, const RawOptions& options) {
    TiffBytes file(std::string("II\x2A\0\0\0\0\0", 8), false);
    auto first = firstFields("SONY", "ILCE-999", options, appendExif(file, options));
    if (isThere(previews, 0)) {
        const Told told = appendPreview(file, previews[0]);
        first.push_back(TiffBytes::shorts(0x0103, {6}));
        first.push_back(TiffBytes::longs(0x0201, {told.offset}));
        first.push_back(TiffBytes::longs(0x0202, {told.length}));
    }
    first.push_back(TiffBytes::longs(0x014A, {appendSensor(file, options)}));
    const auto firstAt = file.directory(first);
    const auto second = file.directory({TiffBytes::shorts(0x0103, {6})});
    file.setFirst(firstAt);
    file.setNext(firstAt, second);
    if (isThere(previews, 1)) file.setNext(second, appendJpegDirectory(file, previews[1]));
    return file.bytes();
}

std::string cr2File(const std::vector<RawPreview>& previews, const RawOptions& options) {
    TiffBytes file(std::string("II\x2A\0\0\0\0\0CR\2\0\0\0\0\0", 16), false);
    std::vector<Field> notes{TiffBytes::shorts(0x0001, {0, 0})};
    if (options.adobe == AdobeMark::makerNote) notes.push_back(TiffBytes::shorts(0x00B4, {2}));
    const auto exif = appendExif(file, options, file.directory(notes));
    auto first = firstFields("Canon", "Canon EOS 999D", options, exif);
    if (isThere(previews, 0)) {
        const Told told = appendPreview(file, previews[0]);
        first.push_back(TiffBytes::shorts(0x0103, {6}));
        first.push_back(TiffBytes::longs(0x0111, {told.offset}));
        first.push_back(TiffBytes::longs(0x0117, {told.length}));
    }
    const auto firstAt = file.directory(first);
    file.setFirst(firstAt);
    std::uint32_t last = firstAt;
    if (isThere(previews, 1)) {
        const auto second = appendJpegDirectory(file, previews[1]);
        file.setNext(last, second);
        last = second;
    }
    const auto data = file.append(std::string(options.sensorBytes, '\x55'));
    file.setNext(
        last,
        file.directory({TiffBytes::shorts(0x0103, {6}), TiffBytes::longs(0x0111, {data}),
                        TiffBytes::longs(0x0117, {static_cast<std::uint32_t>(options.sensorBytes)}),
                        TiffBytes::shorts(0xC640, {1, 1984, 1984})}));
    return file.bytes();
}

std::string orfFile(const std::vector<RawPreview>& previews, const RawOptions& options) {
    TiffBytes file(std::string("IIRO\0\0\0\0", 8), false);
    const auto notes = file.append(std::string("OLYMPUS\0II\3\0", 12));
    const auto noteDirectory = file.directory({TiffBytes::longs(0x2020, {0})}, notes);
    std::vector<Field> settings{TiffBytes::longs(0x0100, {1}), TiffBytes::longs(0x0101, {0}),
                                TiffBytes::longs(0x0102, {0})};
    if (options.adobe == AdobeMark::makerNote) settings.push_back(TiffBytes::shorts(0x0507, {1}));
    const auto settingsAt = file.directory(settings, notes);
    file.setNumber(noteDirectory, 0x2020, settingsAt - notes);
    if (isThere(previews, 0)) {
        const Told told = appendPreview(file, previews[0]);
        file.setNumber(settingsAt, 0x0101, told.offset - notes);
        file.setNumber(settingsAt, 0x0102, told.length);
    }
    const auto exif = appendExif(file, options, notes);
    auto first = firstFields("OLYMPUS CORPORATION", "E-M999", options, exif);
    const auto data = file.append(std::string(options.sensorBytes, '\x55'));
    first.push_back(TiffBytes::longs(0x0100, {unsignedOf(options.sensor.width)}));
    first.push_back(TiffBytes::longs(0x0101, {unsignedOf(options.sensor.height)}));
    first.push_back(TiffBytes::shorts(0x0103, {unknownCompression}));
    first.push_back(TiffBytes::longs(0x0111, {data}));
    first.push_back(TiffBytes::longs(0x0117, {static_cast<std::uint32_t>(options.sensorBytes)}));
    const auto firstAt = file.directory(first);
    file.setFirst(firstAt);
    if (isThere(previews, 1)) file.setNext(firstAt, appendJpegDirectory(file, previews[1]));
    return file.bytes();
}

std::string rw2File(const std::vector<RawPreview>& previews, const RawOptions& options) {
    TiffBytes file(std::string("IIU\0\0\0\0\0", 8), false);
    const auto exif = appendExif(file, options);
    auto first = firstFields("Panasonic", "DC-G999", options, exif);
    constexpr std::uint32_t margin = 8;
    const PixelSize size = options.picture.value_or(options.sensor);
    first.push_back(TiffBytes::shorts(0x0002, {unsignedOf(options.sensor.width) + 2 * margin}));
    first.push_back(TiffBytes::shorts(0x0003, {unsignedOf(options.sensor.height) + 2 * margin}));
    first.push_back(TiffBytes::shorts(0x0004, {margin}));
    first.push_back(TiffBytes::shorts(0x0005, {margin}));
    first.push_back(TiffBytes::shorts(0x0006, {margin + unsignedOf(size.height)}));
    first.push_back(TiffBytes::shorts(0x0007, {margin + unsignedOf(size.width)}));
    const std::array<std::uint16_t, 2> tags{0x002E, 0x0127};
    for (std::size_t slot = 0; slot < tags.size(); ++slot) {
        if (!isThere(previews, slot)) continue;
        const Told told = appendPreview(file, previews[slot]);
        first.push_back(TiffBytes::undefinedAt(tags[slot], told.offset, told.length));
    }
    const auto data = file.append(std::string(options.sensorBytes, '\x55'));
    first.push_back(TiffBytes::longs(0x0111, {0xFFFFFFFF}));
    first.push_back(TiffBytes::longs(0x0118, {data}));
    file.setFirst(file.directory(first));
    return file.bytes();
}

std::uint32_t appendDngPreview(TiffBytes& file, const RawPreview& preview,
                               const RawOptions& options) {
    const Told told = appendPreview(file, preview);
    std::vector<Field> fields{
        TiffBytes::longs(0x00FE, {1}),           TiffBytes::shorts(0x0103, {7}),
        TiffBytes::shorts(0x0106, {6}),          TiffBytes::longs(0x0111, {told.offset}),
        TiffBytes::longs(0x0117, {told.length}),
    };
    // DNG has a tag of its own where others have their notes.
    if (options.adobe == AdobeMark::makerNote) fields.push_back(TiffBytes::longs(0xC71A, {3}));
    return file.directory(fields);
}

std::string dngFile(const std::vector<RawPreview>& previews, const RawOptions& options) {
    TiffBytes file(std::string("II\x2A\0\0\0\0\0", 8), false);
    auto first = firstFields("Ornivo", "Test Camera", options, appendExif(file, options));
    std::vector<std::uint32_t> below{appendSensor(file, options)};
    for (std::size_t slot = 0; slot < previews.size(); ++slot) {
        if (isThere(previews, slot)) {
            below.push_back(appendDngPreview(file, previews[slot], options));
        }
    }
    first.push_back(TiffBytes::longs(0x014A, below));
    first.push_back(TiffBytes::undefined(0xC612, std::string("\1\4\0\0", 4)));
    file.setFirst(file.directory(first));
    return file.bytes();
}

}  // namespace

std::string_view extensionOf(RawKind kind) {
    constexpr std::array<std::string_view, allRawKinds.size()> names{"nef", "arw", "cr2", "orf",
                                                                     "rw2", "dng", "cr3"};
    return names[static_cast<std::size_t>(kind)];
}

std::string rawFile(RawKind kind, const std::vector<RawPreview>& previews,
                    const RawOptions& options) {
    constexpr std::array writers{nefFile, arwFile, cr2File, orfFile, rw2File, dngFile, cr3File};
    return writers[static_cast<std::size_t>(kind)](previews, options);
}

std::string pentaxDngFile(const std::string& jpeg) {
    TiffBytes file(std::string("II\x2A\0\0\0\0\0", 8), false);
    const auto notes = file.append(std::string("AOC\0II", 6));
    const auto entries =
        file.directory({TiffBytes::shorts(0x0002, {900, 600}), TiffBytes::longs(0x0003, {0}),
                        TiffBytes::longs(0x0004, {0})},
                       notes);
    const auto at = file.append(jpeg);
    file.setNumber(entries, 0x0003, static_cast<std::uint32_t>(jpeg.size()));
    file.setNumber(entries, 0x0004, at);
    const auto exif = file.directory({TiffBytes::undefinedAt(0x927C, notes, at - notes)});
    file.setFirst(
        file.directory({TiffBytes::ascii(0x010F, "PENTAX"),
                        TiffBytes::ascii(0x0110, "PENTAX K-999"), TiffBytes::longs(0x8769, {exif}),
                        TiffBytes::undefined(0xC612, std::string("\1\4\0\0", 4))}));
    return file.bytes();
}

std::filesystem::path writeRaw(const std::filesystem::path& folder, RawKind kind,
                               const std::vector<RawPreview>& previews, const RawOptions& options) {
    const auto name = "IMG." + std::string(extensionOf(kind));
    return writeFile(folder / name, rawFile(kind, previews, options));
}

std::ostream& operator<<(std::ostream& out, RawKind kind) {
    return out << extensionOf(kind);
}

}  // namespace ornivo::testing
