#include "cli/SortScene.h"

#include <cstdio>
#include <sstream>

#include "support/Pictures.h"

namespace ornivo::testing {

namespace fs = std::filesystem;

fs::path SortScene::addPhoto(const std::string& name) const {
    return writeJpeg(in / name, 240, 240);
}

void SortScene::addPhotos(int count) const {
    const fs::path first = addPhoto("IMG_0001.jpg");
    for (int i = 2; i <= count; ++i) {
        const std::string number = std::to_string(i);
        fs::copy_file(first, in / ("IMG_" + std::string(4 - number.size(), '0') + number + ".jpg"));
    }
}

bool SortScene::addBirds(int count) const {
    const fs::path photos = sampleMedia() / "photos";
    if (sampleMedia().empty() || !fs::exists(photos)) return false;
    fs::create_directories(in);
    const auto names = filesIn(photos);
    for (auto name = names.begin(); name != names.end() && count > 0; ++name) {
        if (fs::path(*name).extension() != ".jpg") continue;
        fs::copy_file(photos / *name, in / *name);
        --count;
    }
    return count == 0;
}

Arguments SortScene::sorting(const Arguments& more) const {
    Arguments all{"sort", in.string(), out.string()};
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

std::set<std::string> SortScene::filesIn(const fs::path& folder) {
    std::set<std::string> files;
    if (!fs::exists(folder)) return files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) files.insert(entry.path().lexically_relative(folder).string());
    }
    return files;
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

}  // namespace ornivo::testing
