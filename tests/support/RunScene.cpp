#include "support/RunScene.h"

#include <gtest/gtest.h>

#include <utility>

#include "media/ImageDecoder.h"

namespace ornivo::testing {

namespace fs = std::filesystem;

RunScene::RunScene(std::shared_ptr<ScriptedIdentifier> identifier, fs::path destination,
                   unsigned workers)
    : identifier_(std::move(identifier)), workers_(workers) {
    input.destination = destination.empty() ? folder_ / "sorted" : std::move(destination);
    input.options.confidence = ConfidencePolicy::defaultSlider;
    relaunch();
}

fs::path RunScene::picture(const std::string& name, IdentifiedSpecies species, const Exif& exif) {
    const int width = newWidth();
    identifier_->answer(width, std::move(species));
    return add(writeJpeg(source() / name, width, 24, {.exif = exif}));
}

fs::path RunScene::picture(const std::string& name, const Bird& bird, double confidence,
                           const Exif& exif) {
    return picture(name, guesses({{bird.label, confidence}}), exif);
}

fs::path RunScene::failingPicture(const std::string& name, std::exception_ptr failure) {
    const int width = newWidth();
    identifier_->fail(width, std::move(failure));
    return add(writeJpeg(source() / name, width, 24));
}

fs::path RunScene::raw(const std::string& name, const Bird& bird, double confidence) {
    // Development may trim the edges, so the width that counts is the developed one.
    const fs::path path = writeDng(source() / name, filled(300 + newWidth(), 200));
    const auto decoded = ImageDecoder::decode(path, 640, /*measureQuality=*/false);
    EXPECT_TRUE(decoded) << path;
    if (decoded) identifier_->answer(decoded->image.width(), guesses({{bird.label, confidence}}));
    return add(path);
}

fs::path RunScene::junk(const std::string& name) {
    return add(writeFile(source() / name, "junk"));
}

fs::path RunScene::sidecar(const std::string& name, const std::string& contents) {
    return writeFile(source() / name, contents);
}

RunReport RunScene::run() {
    return readToEnd(engine_->run(input));
}

void RunScene::relaunch() {
    engine_ = std::make_unique<SortEngine>(identifier_, controller_, files_, workers_);
}

std::set<std::string> RunScene::filed() const {
    std::set<std::string> names;
    if (!fs::exists(input.destination)) return names;
    for (const auto& entry : fs::recursive_directory_iterator(input.destination)) {
        if (entry.is_regular_file()) {
            names.insert(entry.path().lexically_relative(input.destination).string());
        }
    }
    return names;
}

std::string RunScene::contents(const std::string& path) const {
    return readFile(input.destination / path);
}

fs::path RunScene::add(fs::path path) {
    input.paths.push_back(path);
    return path;
}

}  // namespace ornivo::testing
