#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "app/AppWindow.h"

namespace ornivo::testing {

/// Where pictures go, and the home of the folders in them.
struct Places {
    std::filesystem::path out;
    std::filesystem::path home;
};

/// A folder that wasn't there before, and goes with all it holds.
class OwnFolder {
public:
    explicit OwnFolder(std::filesystem::path path);
    ~OwnFolder();
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    std::filesystem::path operator/(const char* name) const { return path_ / name; }

private:
    const std::filesystem::path path_;
};

/// The window of somebody with a card full of photographs, to be taken pictures of.
class PictureScene {
public:
    explicit PictureScene(const Places& places);
    ~PictureScene();

    /// Chooses the card, whose scan never ends, and nothing else.
    void chooseWhileScanning();
    /// Chooses the library of another program, which is refused.
    void chooseLibrary();
    void chooseFolders();
    /// The photographs say nothing of where they were taken.
    void forgetPlaces();
    void leaveSidecars();
    /// Fills the disk up during the copy of that number.
    void fillDiskAt(int copy);
    /// Runs up to the copy of that number, and stays there.
    void runUpTo(int copy);
    void stop();
    void runToTheEnd();

    AppWindow& window();
    app::AppStore& store() { return scene_.store(); }
    FailingFiles& files() { return scene_.run.files(); }

    /// Takes the picture of that name, once all has come to rest.
    void picture(const std::string& name);

private:
    SpaceEstimate estimate() const;
    std::filesystem::path card() const { return pictures_ / "Card"; }
    std::filesystem::path birds() const { return pictures_ / "Birds"; }
    void takePhotograph(int i);
    void letGo();

    const std::filesystem::path out_;
    const OwnFolder pictures_;
    std::atomic<bool> isHeld_ = false;
    std::atomic<bool> mayGo_ = false;
    StoreScene scene_;
    std::unique_ptr<AppWindow> window_;
    std::int64_t free_ = 212'000'000'000;
};

/// Keeps what a window shows as a PNG in that folder. Nothing in it answers to the mouse.
void savePicture(QQuickWindow& window, const std::filesystem::path& folder,
                 const std::string& name);

}  // namespace ornivo::testing
