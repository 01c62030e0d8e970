#include <QGuiApplication>
#include <cstdio>

#include "app/ElementScene.h"
#include "app/PictureScene.h"
#include "app/presentation/CreditsPresenter.h"
#include "identification/BirdClassifierLabels.h"

/// Takes pictures of every state of the window: `take_pictures OUT HOME` writes them to the folder
/// OUT as PNG. The photographs are made up. They lie in HOME/Pictures, which can be read in the
/// pictures, must not be there yet, and goes at the end. QT_QPA_PLATFORM says which screen is used,
/// QT_SCALE_FACTOR how many pixels of it make one of the window's.
namespace ornivo::testing {
namespace {

using Operation = FailingFiles::Operation;

/// Notches of the wheel that reach the end of whatever scrolls.
constexpr int farAway = 30;

void launch(const Places& places) {
    PictureScene scene(places);
    scene.picture("launch");
}

void scanning(const Places& places) {
    PictureScene scene(places);
    scene.chooseWhileScanning();
    scene.picture("scanning");
}

void refused(const Places& places) {
    PictureScene scene(places);
    scene.chooseLibrary();
    scene.picture("refused");
}

void ready(const Places& places) {
    PictureScene scene(places);
    scene.chooseFolders();
    scene.picture("ready");
}

void readyWithoutPlaces(const Places& places) {
    PictureScene scene(places);
    scene.forgetPlaces();
    scene.chooseFolders();
    scene.picture("ready-without-places");
}

void runningPausedAndStopped(const Places& places) {
    PictureScene scene(places);
    scene.runUpTo(53);
    scene.picture("running");
    scene.window().click("Pause");
    waitUntil([&] { return scene.store().jobState() == JobState::paused; });
    scene.picture("paused");
    scene.stop();
    scene.picture("stopped");
}

void doneWithWarnings(const Places& places) {
    PictureScene scene(places);
    scene.leaveSidecars();
    scene.files().fail(
        Operation::copy, [](const auto& attempt) { return attempt.path.extension() == ".xmp"; },
        notPermitted());
    scene.runToTheEnd();
    scene.picture("done");
}

void diskFull(const Places& places) {
    PictureScene scene(places);
    scene.fillDiskAt(81);
    scene.runToTheEnd();
    scene.picture("disk-full");
    scene.window().scroll(farAway);
    scene.picture("disk-full-result");
}

void find(const Places& places) {
    PictureScene scene(places);
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
    PictureScene scene(places);
    scene.chooseFolders();
    AppWindow& window = scene.window();
    window.key(Qt::Key_Comma, Qt::ControlModifier);
    scene.picture("settings");
    window.click("Confirm near-misses");
    scene.picture("settings-bursts");
    window.click(QString::fromUtf8("Type a bird you photograph…"));
    window.type("owl");
    scene.picture("settings-coverage");
    // The list of matches would take the wheel.
    window.key(Qt::Key_A, Qt::ControlModifier);
    window.key(Qt::Key_Backspace);
    window.scroll(farAway);
    window.click(QString::fromUtf8("or type a place — Kerala, Ladakh, Bangalore…"));
    window.type("Norfolk");
    window.key(Qt::Key_Return);
    scene.picture("settings-region");
    window.scroll(farAway);
    window.click("Who made this possible");
    scene.picture("credits");
}

void creditsWithRoster(const Places& places) {
    std::optional<Credits::Payload> payload = Credits::payload();
    payload->rosterStatus = "complete";
    for (int i = 1; i <= 1200; ++i) {
        payload->photographers.push_back("Photographer " + std::to_string(i));
    }
    app::CreditsPresenter presenter(payload);
    ElementScene scene("CreditsView { credits: host.credits }",
                       {{"credits", QVariant::fromValue(&presenter)}});
    scene.control("Search names")->forceActiveFocus(Qt::OtherFocusReason);
    savePicture(scene.window(), places.out, "credits-roster");
}

void takePictures(const Places& places) {
    for (const auto take :
         {launch, scanning, refused, ready, readyWithoutPlaces, runningPausedAndStopped,
          doneWithWarnings, diskFull, find, settingsAndCredits, creditsWithRoster}) {
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
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_QPA_PLATFORMTHEME", "generic");
    qputenv("XDG_CONFIG_HOME", home.path().c_str());
    qputenv("XDG_RUNTIME_DIR", home.path().c_str());
    qputenv("LC_ALL", "en_GB.UTF-8");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    QGuiApplication application(count, arguments);
    ornivo::testing::takePictures({arguments[1], arguments[2]});
}
