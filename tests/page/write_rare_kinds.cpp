#include <cstdio>
#include <filesystem>

#include "support/Pictures.h"

/// Writes photographs that no browser shows, or few: `write_rare_kinds FOLDER` makes a RAW file, a
/// HEIC file where the library can write one, a TIFF that has to be turned, and a RAW file with its
/// JPEG beside it. All are wider than tall.
namespace ornivo::testing {
namespace {

/// Stripes of slowly changing colours, which are no bird.
Bitmap stripes(int width, int height) {
    return painted(width, height, [=](int x, int y) {
        const auto shade = static_cast<std::uint8_t>(40 + 170 * x / width);
        const auto other = static_cast<std::uint8_t>(y / 20 % 2 == 0 ? 90 : 160);
        return Colour{shade, other, 110};
    });
}

void writeFolder(const std::filesystem::path& folder) {
    constexpr std::uint16_t turnedRight = 6;
    writeDng(folder / "a raw.dng", stripes(720, 480));
    if (canWriteHeic()) writeHeic(folder / "phone.heic", stripes(720, 480));
    writeTiffInPlanes(folder / "scan.tif", stripes(480, 720), turnedRight);
    writeDng(folder / "pair.dng", stripes(720, 480));
    writeJpeg(folder / "pair.jpg", stripes(480, 320));
}

}  // namespace
}  // namespace ornivo::testing

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: write_rare_kinds FOLDER\n", stderr);
        return 2;
    }
    ornivo::testing::writeFolder(arguments[1]);
}
