#include <QGuiApplication>
#include <QImage>
#include <QTest>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>

#include "app/AppWindow.h"
#include "identification/BirdClassifierLabels.h"

/// Takes the pictures of the window that the user guide shows: `take_pictures OUT HOME` writes them
/// to the folder OUT as PNG. The photographs are made up. They lie in HOME/Pictures, which can be
/// read in the pictures, must not be there yet, and goes at the end.
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
/// Notches of the wheel that reach the end of whatever scrolls.
constexpr int farAway = 30;
/// For what moves to come to rest.
constexpr int restMilliseconds = 1500;

const std::array species{
    Bird{"Cyanistes_caeruleus", "Eurasian Blue Tit"},
    Bird{"Erithacus_rubecula", "European Robin"},
    Bird{"Aegithalos_caudatus", "Long-tailed Tit"},
    Bird{"Podiceps_cristatus", "Great Crested Grebe"},
    Bird{"Alcedo_atthis", "Common Kingfisher"},
};

/// Where pictures go, and the home of the folders in them.
struct Places {
    fs::path out;
    fs::path home;
};

/// A folder that wasn't there before, and goes with all it holds.
class OwnFolder {
public:
    explicit OwnFolder(fs::path path) : path_(std::move(path)) {
        fs::create_directories(path_.parent_path());
        if (!fs::create_directory(path_)) {
            throw std::runtime_error("There is something already: " + path_.string());
        }
    }
    ~OwnFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    fs::path operator/(const char* name) const { return path_ / name; }

private:
    const fs::path path_;
};

/// The window of somebody with a card full of photographs.
class Scene {
public:
    explicit Scene(const Places& places)
        : out_(places.out), pictures_(places.home / "Pictures"), scene_(birds()) {
        for (const char* const name : {"Card", "Garden", "Norfolk", "Birds"}) {
            fs::create_directory(pictures_ / name);
        }
        scene_.services.estimate = [this](std::int64_t, const auto&, const auto&) {
            return estimate();
        };
        scene_.run.identifier().onCall([](int) { std::this_thread::sleep_for(pace); });
    }
    ~Scene() { letGo(); }

    void chooseFolders() {
        for (int i = 0; i < photographs; ++i) takePhotograph(i);
        for (const char* const name : {"Norfolk", "Garden"}) {
            store().recentFolders()->add(pictures_ / name, app::RecentFoldersStore::Kind::source);
        }
        store().setSource(card());
        store().setSink(birds());
        scene_.waitForScan();
    }
    void leaveSidecars() {
        for (const int number : {4107, 4119, 4123, 4140}) {
            scene_.run.sidecar(card() / ("IMG_" + std::to_string(number) + ".xmp"));
        }
    }
    /// Fills the disk up during the copy of that number.
    void fillDiskAt(int copy) {
        files().fail(Operation::copy, from(copy), noSpaceLeft());
        free_ = 0;
    }
    /// Runs up to the copy of that number, and stays there.
    void runUpTo(int copy) {
        files().onAttempt([this, copy, seen = 0](const FailingFiles::Attempt& attempt) mutable {
            if (attempt.operation != Operation::copy || seen++ != copy) return;
            isHeld_ = true;
            mayGo_.wait(false);
        });
        chooseFolders();
        window().click("Sort Photos");
        waitUntil([this] { return isHeld_.load(); });
    }
    void runToTheEnd() {
        chooseFolders();
        window().click("Sort Photos");
        scene_.waitForEnd();
    }

    AppWindow& window() {
        if (!window_) {
            window_ = std::make_unique<AppWindow>(store());
            window_->window().resize(size);
        }
        return *window_;
    }
    app::AppStore& store() { return scene_.store(); }
    FailingFiles& files() { return scene_.run.files(); }

    void picture(const std::string& name) {
        // Away from everything that would answer to it.
        QTest::mouseMove(&window().window(), {2, size.height() / 2});
        QTest::qWait(restMilliseconds);
        const fs::path path = out_ / (name + ".png");
        constexpr int smallest = 0;
        const QImage seen = window().window().grabWindow();
        if (!seen.save(QString::fromStdString(path.string()), "PNG", smallest)) {
            throw std::runtime_error("The picture can't be written: " + path.string());
        }
    }

private:
    SpaceEstimate estimate() const {
        using Verdict = SpaceEstimate::Verdict;
        return {.photographBytes = bytes,
                .requiredBytes = bytes,
                .availableBytes = free_,
                .destinationVolumeName = "Photographs",
                .verdict = free_ < bytes ? Verdict::doesNotFit : Verdict::fits};
    }
    fs::path card() const { return pictures_ / "Card"; }
    fs::path birds() const { return pictures_ / "Birds"; }

    void takePhotograph(int i) {
        const fs::path path = card() / ("IMG_" + std::to_string(firstNumber + i) + ".JPG");
        // Birds come in bunches, and one in sixteen can't be told.
        const Bird& bird = species.at(static_cast<std::size_t>(i / 7) % species.size());
        const double confidence = i % 16 == 11 ? 0.41 : 0.82 + 0.001 * (i % 15);
        scene_.run.picture(path, bird, confidence,
                           {.dateTimeOriginal = "2026:05:02 07:30:00", .position = {{52.9, 0.9}}});
    }
    void letGo() {
        mayGo_ = true;
        mayGo_.notify_all();
    }

    const fs::path out_;
    const OwnFolder pictures_;
    std::atomic<bool> isHeld_ = false;
    std::atomic<bool> mayGo_ = false;
    StoreScene scene_;
    std::unique_ptr<AppWindow> window_;
    std::int64_t free_ = 212'000'000'000;
};

void launch(const Places& places) {
    Scene scene(places);
    scene.picture("launch");
}

void ready(const Places& places) {
    Scene scene(places);
    scene.chooseFolders();
    scene.picture("ready");
}

void runningAndPaused(const Places& places) {
    Scene scene(places);
    scene.runUpTo(53);
    scene.window().scroll(farAway);
    scene.picture("running");
    scene.window().click("Pause");
    waitUntil([&] { return scene.store().jobState() == JobState::paused; });
    scene.picture("paused");
}

void doneWithWarnings(const Places& places) {
    Scene scene(places);
    scene.leaveSidecars();
    scene.files().fail(
        Operation::copy, [](const auto& attempt) { return attempt.path.extension() == ".xmp"; },
        notPermitted());
    scene.runToTheEnd();
    scene.picture("done");
}

void diskFull(const Places& places) {
    Scene scene(places);
    scene.fillDiskAt(81);
    scene.runToTheEnd();
    scene.picture("disk-full");
}

void find(const Places& places) {
    Scene scene(places);
    scene.chooseFolders();
    scene.window().click("Find Species");
    scene.store().addSpecies("Great Crested Grebe", "Podiceps cristatus");
    scene.store().addSpecies("Dodo", "Raphus cucullatus");
    scene.window().click(
        QString("Name one of %1 species").arg(BirdClassifierLabels::speciesCount()));
    scene.window().type("kingf");
    scene.picture("find");
}

void settingsAndCredits(const Places& places) {
    Scene scene(places);
    scene.chooseFolders();
    scene.window().key(Qt::Key_Comma, Qt::ControlModifier);
    scene.picture("settings");
    scene.window().scroll(farAway);
    scene.window().click("Who made this possible");
    scene.picture("credits");
}

void takePictures(const Places& places) {
    for (const auto take :
         {launch, ready, runningAndPaused, doneWithWarnings, diskFull, find, settingsAndCredits}) {
        take(places);
    }
}

}  // namespace
}  // namespace ornivo::testing

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("usage: take_pictures OUT HOME\n", stderr);
        return 2;
    }
    const ornivo::testing::TempFolder home;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_QPA_PLATFORMTHEME", "generic");
    qputenv("XDG_CONFIG_HOME", home.path().c_str());
    qputenv("XDG_RUNTIME_DIR", home.path().c_str());
    qputenv("LC_ALL", "en_GB.UTF-8");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("DISPLAY");
    QGuiApplication application(count, arguments);
    ornivo::testing::takePictures({arguments[1], arguments[2]});
}
