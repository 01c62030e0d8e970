#include "app/PictureScene.h"

#include <QImage>
#include <QTest>
#include <array>
#include <chrono>
#include <stdexcept>
#include <thread>

namespace ornivo::testing {
namespace {

namespace fs = std::filesystem;
using Operation = FailingFiles::Operation;

constexpr int photographs = 128;
constexpr int firstNumber = 4101;
constexpr std::int64_t bytes = 1'940'000'000;
/// What it takes to sort a photograph of a large sensor.
constexpr std::chrono::milliseconds pace{85};
constexpr QSize size{912, 760};
/// For what moves to come to rest.
constexpr int restMilliseconds = 1500;

const std::array species{
    Bird{"Cyanistes_caeruleus", "Eurasian Blue Tit"},
    Bird{"Erithacus_rubecula", "European Robin"},
    Bird{"Aegithalos_caudatus", "Long-tailed Tit"},
    Bird{"Podiceps_cristatus", "Great Crested Grebe"},
    Bird{"Alcedo_atthis", "Common Kingfisher"},
};

}  // namespace

OwnFolder::OwnFolder(fs::path path) : path_(std::move(path)) {
    fs::create_directories(path_.parent_path());
    if (!fs::create_directory(path_)) {
        throw std::runtime_error("There is something already: " + path_.string());
    }
}

OwnFolder::~OwnFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

PictureScene::PictureScene(const Places& places)
    : out_(places.out), pictures_(places.home / "Pictures"), scene_(birds()) {
    for (const char* const name : {"Card", "Garden", "Norfolk", "Birds", "Trip.photoslibrary"}) {
        fs::create_directory(pictures_ / name);
    }
    scene_.services.estimate = [this](std::int64_t, const auto&, const auto&) {
        return estimate();
    };
    scene_.run.identifier().onCall([](int) { std::this_thread::sleep_for(pace); });
}

PictureScene::~PictureScene() {
    letGo();
}

void PictureScene::chooseWhileScanning() {
    scene_.services.scan = [this](const fs::path&) {
        mayGo_.wait(false);
        return FileScanner::Scan();
    };
    store().setSource(card());
}

void PictureScene::chooseLibrary() {
    store().setSource(pictures_ / "Trip.photoslibrary");
    scene_.waitForScan();
}

void PictureScene::chooseFolders() {
    for (int i = 0; i < photographs; ++i) takePhotograph(i);
    for (const char* const name : {"Norfolk", "Garden"}) {
        store().recentFolders()->add(pictures_ / name, app::RecentFoldersStore::Kind::source);
    }
    store().setSource(card());
    store().setSink(birds());
    scene_.waitForScan();
}

void PictureScene::forgetPlaces() {
    scene_.services.survey = [](const auto& files) {
        return PhotoLocationSurvey(static_cast<int>(files.size()), 0);
    };
}

void PictureScene::leaveSidecars() {
    for (const int number : {4107, 4119, 4123, 4140}) {
        scene_.run.sidecar(card() / ("IMG_" + std::to_string(number) + ".xmp"));
    }
}

void PictureScene::fillDiskAt(int copy) {
    files().fail(Operation::copy, from(copy), noSpaceLeft());
    free_ = 0;
}

void PictureScene::runUpTo(int copy) {
    files().onAttempt([this, copy, seen = 0](const FailingFiles::Attempt& attempt) mutable {
        if (attempt.operation != Operation::copy || seen++ != copy) return;
        isHeld_ = true;
        mayGo_.wait(false);
    });
    chooseFolders();
    window().click("Sort Photos");
    waitUntil([this] { return isHeld_.load(); });
}

void PictureScene::stop() {
    window().click("Stop");
    letGo();
    scene_.waitForEnd();
}

void PictureScene::runToTheEnd() {
    chooseFolders();
    window().click("Sort Photos");
    scene_.waitForEnd();
}

AppWindow& PictureScene::window() {
    if (!window_) {
        window_ = std::make_unique<AppWindow>(store());
        window_->window().resize(size);
    }
    return *window_;
}

void PictureScene::picture(const std::string& name) {
    savePicture(window().window(), out_, name);
}

SpaceEstimate PictureScene::estimate() const {
    using Verdict = SpaceEstimate::Verdict;
    return {.photographBytes = bytes,
            .requiredBytes = bytes,
            .availableBytes = free_,
            .destinationVolumeName = "Photographs",
            .verdict = free_ < bytes ? Verdict::doesNotFit : Verdict::fits};
}

void PictureScene::takePhotograph(int i) {
    const fs::path path = card() / ("IMG_" + std::to_string(firstNumber + i) + ".JPG");
    // Birds come in bunches, and one in sixteen can't be told.
    const Bird& bird = species.at(static_cast<std::size_t>(i / 7) % species.size());
    const double confidence = i % 16 == 11 ? 0.41 : 0.82 + 0.001 * (i % 15);
    scene_.run.picture(path, bird, confidence,
                       {.dateTimeOriginal = "2026:05:02 07:30:00", .position = {{52.9, 0.9}}});
}

void PictureScene::letGo() {
    mayGo_ = true;
    mayGo_.notify_all();
}

void savePicture(QQuickWindow& window, const fs::path& folder, const std::string& name) {
    // Away from everything that would answer to it.
    QTest::mouseMove(&window, {2, window.height() / 2});
    QTest::qWait(restMilliseconds);
    const fs::path path = folder / (name + ".png");
    constexpr int smallest = 0;
    if (!window.grabWindow().save(QString::fromStdString(path.string()), "PNG", smallest)) {
        throw std::runtime_error("The picture can't be written: " + path.string());
    }
}

}  // namespace ornivo::testing
