/// How the window fares while a run of 10,000 files goes through as fast as the engine can: how
/// long the main thread was away from the screen at a time, and how many frames it drew.
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <memory>
#include <vector>

#include "app/AppStore.h"
#include "app/Desktop.h"
#include "app/MainWindow.h"
#include "app/UpdaterController.h"
#include "identification/UnavailableBirdIdentifier.h"

namespace {

using namespace ornivo;
using namespace ornivo::app;
namespace fs = std::filesystem;

constexpr int fileCount = 10000;
constexpr double frameMilliseconds = 1000.0 / 60;

struct NoCentre : SoftwareCentre {
    bool canShowPage() const override { return false; }
    void showPage() override {}
};

struct NoFileManager : FileManager {
    void reveal(const fs::path&) override {}
};

/// Files that fail at once, which is as fast as a run can go.
void writeFiles(const fs::path& folder) {
    fs::create_directories(folder);
    for (int i = 0; i < fileCount; ++i) {
        std::ofstream(folder / (std::to_string(i) + ".jpg")) << "no picture";
    }
}

/// How long the main thread took each time before it was back for the next thing to do.
class Absences {
public:
    Absences() {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            const double gap = static_cast<double>(sinceLast_.nsecsElapsed()) / 1e6;
            gaps_.push_back(gap);
            sinceLast_.restart();
        });
    }
    void start() {
        sinceLast_.start();
        timer_.start(1);
    }
    void report() {
        std::sort(gaps_.begin(), gaps_.end());
        const auto late = std::count_if(gaps_.begin(), gaps_.end(),
                                        [](double gap) { return gap > frameMilliseconds; });
        std::printf("turns of the main thread  %zu\n", gaps_.size());
        std::printf("longest absence           %.1f ms\n", gaps_.back());
        std::printf("99.9th percentile         %.1f ms\n", gaps_[gaps_.size() * 999 / 1000]);
        std::printf("longer than a frame       %ld\n", static_cast<long>(late));
    }

private:
    QTimer timer_;
    QElapsedTimer sinceLast_;
    std::vector<double> gaps_;
};

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const QTemporaryDir home;
    const fs::path folder = home.path().toStdString();
    writeFiles(folder / "source");

    QSettings preferences(home.filePath(QStringLiteral("ornivo.ini")), QSettings::IniFormat);
    AppServices services;
    services.preferences = &preferences;
    services.identifier = std::make_shared<UnavailableBirdIdentifier>(
        ConfidencePolicy(), BirdIdentifierError::modelNotFound());
    AppStore store(services);
    NoCentre centre;
    UpdaterController updater(centre);
    NoFileManager files;
    Desktop desktop(files);
    QQmlApplicationEngine qml;
    const QQuickWindow* const window = showMainWindow(qml, store, updater, desktop);

    int frames = 0;
    int announcements = 0;
    Absences absences;
    QElapsedTimer run;
    QObject::connect(window, &QQuickWindow::frameSwapped, &store, [&] { ++frames; });
    QObject::connect(&store, &AppStore::progressChanged, [&] { ++announcements; });
    QObject::connect(&store, &AppStore::foldersReadyChanged, [&] {
        if (!store.foldersReady() || run.isValid()) return;
        run.start();
        frames = 0;
        absences.start();
        store.tapPrimaryCTA();
    });
    QObject::connect(&store, &AppStore::runEnded, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    store.open({folder / "source", folder / "sink"});
    QCoreApplication::exec();

    const double seconds = static_cast<double>(run.elapsed()) / 1000;
    std::printf("files                     %d in %.2f s\n", store.sortResult()->processed, seconds);
    std::printf("frames drawn              %d, %.0f a second\n", frames, frames / seconds);
    std::printf("announcements of progress %d\n", announcements);
    absences.report();
    return 0;
}
