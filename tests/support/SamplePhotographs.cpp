#include "support/SamplePhotographs.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <utility>

#include "media/ImageDecoder.h"
#include "platform/BitmapTransforms.h"
#include "support/TempFolder.h"

namespace ornivo::testing {
namespace {

namespace fs = std::filesystem;

/// The fields of each line but the first; no field holds a comma.
std::vector<std::vector<std::string>> readTable(const fs::path& file) {
    std::ifstream in(file);
    std::vector<std::vector<std::string>> rows;
    std::string line;
    std::getline(in, line);
    while (std::getline(in, line)) {
        std::istringstream fields(line);
        std::vector<std::string>& row = rows.emplace_back();
        for (std::string field; std::getline(fields, field, ',');) row.push_back(field);
    }
    return rows;
}

std::map<std::string, std::string> speciesByFile(const fs::path& answers) {
    std::map<std::string, std::string> species;
    for (const auto& row : readTable(answers)) {
        std::string label = row.at(1);
        std::ranges::replace(label, ' ', '_');
        species[row.at(0)] = label;
    }
    return species;
}

std::size_t byteOffset(const Bitmap& bitmap, int column, int row) {
    return static_cast<std::size_t>((row * bitmap.width() + column) * Bitmap::channels);
}

}  // namespace

std::size_t eachSamplePhotograph(const std::function<void(const SamplePhotograph&)>& take) {
    const fs::path media = sampleMedia();
    if (media.empty()) return 0;
    const auto species = speciesByFile(media / "answers.csv");
    const auto reference =
        readTable(fs::path(ORNIVO_SOURCE_DIR) / "tests/support/sample_answers.csv");
    for (const auto& row : reference) {
        const std::string& name = row.at(0);
        const auto decoded = ImageDecoder::decodeCGImage(media / "photos" / name, 640).value();
        take({name, decoded.image, decoded.orientation, species.at(name), row.at(1),
              std::stod(row.at(2))});
    }
    return reference.size();
}

Bitmap laidSmall(const Bitmap& picture, const Bitmap& ground, Corner corner) {
    const Bitmap small = scaled(centreSquare(picture), smallSide, smallSide);
    const Bitmap scene = scaled(centreSquare(ground), sceneSide, sceneSide);
    std::vector<std::uint8_t> pixels(scene.pixels().begin(), scene.pixels().end());
    for (int row = 0; row < smallSide; ++row) {
        const auto line = small.pixels().subspan(byteOffset(small, 0, row),
                                                 std::size_t{smallSide} * Bitmap::channels);
        const std::size_t start = byteOffset(scene, corner.left, corner.top + row);
        std::ranges::copy(line, pixels.begin() + static_cast<std::ptrdiff_t>(start));
    }
    return {sceneSide, sceneSide, std::move(pixels)};
}

}  // namespace ornivo::testing
