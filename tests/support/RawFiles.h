#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/BitmapTransforms.h"
#include "platform/ColourSpace.h"

namespace ornivo::testing {

/// The containers in which cameras keep their sensors' data.
enum class RawKind { nef, arw, cr2, orf, rw2, dng, cr3 };

inline constexpr std::array allRawKinds{RawKind::nef, RawKind::arw, RawKind::cr2, RawKind::orf,
                                        RawKind::rw2, RawKind::dng, RawKind::cr3};

/// The kind's extension, which is its name too.
std::string_view extensionOf(RawKind kind);

/// A JPEG to put into the file, or nothing where it is empty.
struct RawPreview {
    std::string jpeg;
    /// What the file says instead of the truth.
    std::optional<std::uint32_t> offset = {};
    std::optional<std::uint32_t> length = {};
};

/// Where a file says that its colours are Adobe RGB.
enum class AdobeMark { none, exif, interoperability, makerNote };

struct RawOptions {
    std::uint16_t orientation = 1;
    PixelSize sensor{6000, 4000};
    /// As EXIF tells it, where it isn't the sensor's.
    std::optional<PixelSize> picture = {};
    AdobeMark adobe = AdobeMark::none;
    std::optional<std::string> dateTimeOriginal = {};
    /// Of a compression that no reader knows.
    std::size_t sensorBytes = 4096;
};

/// A camera's RAW file with the metadata that readers need. There is room for two JPEGs in the
/// places where cameras of the kind keep them:
///
///     nef   the maker's notes, a directory below the first
///     arw   the first directory, the third
///     cr2   the first directory, the second
///     orf   the maker's notes, the second directory
///     rw2   JpgFromRaw, JpgFromRaw2
///     dng   two directories below the first
///     cr3   PRVW, the first track
std::string rawFile(RawKind kind, const std::vector<RawPreview>& previews,
                    const RawOptions& options = {});

/// Writes such a file as `IMG` with the kind's extension into a folder. Answers its path.
std::filesystem::path writeRaw(const std::filesystem::path& folder, RawKind kind,
                               const std::vector<RawPreview>& previews,
                               const RawOptions& options = {});

/// A DNG whose only JPEG stands in notes that our own reader doesn't know.
std::string pentaxDngFile(const std::string& jpeg);

/// For failure messages.
std::ostream& operator<<(std::ostream& out, RawKind kind);

}  // namespace ornivo::testing
