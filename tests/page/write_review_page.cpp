#include <cstdio>
#include <filesystem>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>

#include "platform/Paths.h"
#include "platform/Text.h"
#include "review/ReviewPage.h"
#include "support/Pictures.h"
#include "support/TempFolder.h"

/// Writes a folder as a run leaves it for the person: `write_review_page FOLDER` reads a JSON
/// object with "gate" and "rows" from standard input, each row a file name and its guesses as in
/// ["robin.jpg", [["Erithacus_rubecula", 0.61]]], and makes a picture for every row that isn't a
/// clip, and review.html beside them. The page's date is fixed, and its locale is British.
namespace ornivo {
namespace {

constexpr std::chrono::sys_seconds written{std::chrono::seconds(1'778'223'900)};

ReviewPage::Row rowFrom(const nlohmann::json& json) {
    ReviewPage::Row row{.fileName = json.at(0), .candidates = {}};
    for (const auto& guess : json.at(1)) row.candidates.push_back({guess.at(0), guess.at(1)});
    return row;
}

constexpr std::size_t kindsOfPicture = 12;

/// Landscape and upright pictures in turn, in slowly changing colours.
void writePicture(const std::filesystem::path& path, std::size_t kind) {
    const auto shade = static_cast<std::uint8_t>(60 + kind * 14);
    const testing::JpegOptions options{.colour = {shade, 120, 90}};
    const bool isUpright = kind % 3 == 2;
    testing::writeJpeg(path, isUpright ? 320 : 480, isUpright ? 480 : 320, options);
}

/// One picture of each kind is made, the others are its copies.
void writePictures(const std::filesystem::path& folder, const std::vector<ReviewPage::Row>& rows) {
    std::map<std::size_t, std::filesystem::path> made;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (lowercased(pathExtension(rows[i].fileName)) != "jpg") continue;
        const std::filesystem::path path = folder / rows[i].fileName;
        const auto [original, isNew] = made.try_emplace(i % kindsOfPicture, path);
        if (isNew) {
            writePicture(path, original->first);
        } else {
            std::filesystem::copy_file(original->second, path,
                                       std::filesystem::copy_options::overwrite_existing);
        }
    }
}

void writeFolder(const std::filesystem::path& folder, const nlohmann::json& wish) {
    std::vector<ReviewPage::Row> rows;
    for (const auto& json : wish.at("rows")) rows.push_back(rowFrom(json));
    writePictures(folder, rows);
    testing::writeFile(folder / "review.html",
                       ReviewPage::html(rows, wish.at("gate"), written, "en_GB", "Europe/London"));
}

}  // namespace
}  // namespace ornivo

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: write_review_page FOLDER < rows.json\n", stderr);
        return 2;
    }
    ornivo::writeFolder(arguments[1], nlohmann::json::parse(std::cin));
}
