#include "benchmarks/RawPhotographs.h"

#include <algorithm>
#include <array>

#include "benchmarks/Photographs.h"
#include "support/Pictures.h"

namespace ornivo::benchmarks {
namespace {

using testing::RawKind;

/// The pictures in each of the two places, by kind. A side of 0 is none.
struct Previews {
    RawKind kind;
    PixelSize first;
    PixelSize second;
};

constexpr std::array previews{Previews{RawKind::nef, {640, 424}, {6000, 4000}},
                              Previews{RawKind::arw, {1616, 1080}, {}},
                              Previews{RawKind::cr2, {6000, 4000}, {160, 120}},
                              Previews{RawKind::orf, {3200, 2400}, {}},
                              Previews{RawKind::rw2, {1920, 1440}, {}},
                              Previews{RawKind::dng, {1024, 683}, {6000, 4000}},
                              Previews{RawKind::cr3, {1620, 1080}, {6000, 4000}}};

testing::RawPreview previewOf(PixelSize size) {
    if (size.width == 0) return {};
    return {testing::jpegOf(detailedScene(size.width, size.height),
                            {.kind = testing::JpegKind::asPreview})};
}

}  // namespace

std::string rawPhotograph(RawKind kind) {
    const auto& sizes = *std::ranges::find(previews, kind, &Previews::kind);
    const bool isFourThirds = kind == RawKind::orf || kind == RawKind::rw2;
    testing::RawOptions options;
    options.sensor = isFourThirds ? PixelSize{5656, 4242} : PixelSize{6000, 4000};
    options.dateTimeOriginal = "2026:05:17 08:31:02";
    options.sensorBytes = 25'000'000;
    return rawFile(kind, {previewOf(sizes.first), previewOf(sizes.second)}, options);
}

}  // namespace ornivo::benchmarks
