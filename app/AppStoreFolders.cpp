#include <algorithm>
#include <system_error>
#include <utility>

#include "app/AppStore.h"
#include "app/FolderUrl.h"
#include "platform/Paths.h"
#include "review/Poster.h"

namespace ornivo::app {
namespace {

namespace fs = std::filesystem;

bool isFolder(const fs::path& path) {
    std::error_code unreachable;
    return fs::is_directory(path, unreachable);
}

}  // namespace

void AppStore::setSource(const fs::path& folder) {
    if (jobState_ != JobState::idle) return;
    recentFolders_.add(folder, RecentFoldersStore::Kind::source);
    source_ = folder;
    Q_EMIT sourceChanged();
    clearSourceFindings();
    scanning_ = true;
    Q_EMIT scanningChanged();
    work_.run(
        BackgroundWork::Priority::userInitiated,
        [scan = services_.scan, folder] { return scan(folder); },
        [this](FileScanner::Scan found) { takeScan(std::move(found)); });
}

void AppStore::clearSourceFindings() {
    scan_.reset();
    Q_EMIT scanChanged();
    sortResult_.reset();
    Q_EMIT sortResultChanged();
    findResult_.reset();
    Q_EMIT findResultChanged();
    locationSurvey_.reset();
    Q_EMIT locationSurveyChanged();
    latestPrediction_.reset();
    identificationNotice_.clear();
    Q_EMIT predictionChanged();
    scanRefusal_.clear();
    Q_EMIT scanRefusalChanged();
    spaceEstimate_.reset();
    Q_EMIT spaceEstimateChanged();
}

void AppStore::takeScan(FileScanner::Scan found) {
    scanRefusal_ = QString::fromStdString(found.refusalMessage().value_or(""));
    scan_ = ScanResult{static_cast<int>(found.images.size()), found.images};
    scanning_ = false;
    scannedBytes_ = found.totalBytes;
    Q_EMIT scanRefusalChanged();
    Q_EMIT scanChanged();
    Q_EMIT scanningChanged();
    updateSpaceEstimate();
    work_.run(
        BackgroundWork::Priority::utility,
        [survey = services_.survey, files = std::move(found.images)] { return survey(files); },
        [this](PhotoLocationSurvey survey) {
            locationSurvey_ = survey;
            Q_EMIT locationSurveyChanged();
        });
}

void AppStore::setSink(const fs::path& folder) {
    if (jobState_ != JobState::idle) return;
    recentFolders_.add(folder, RecentFoldersStore::Kind::destination);
    sink_ = folder;
    Q_EMIT sinkChanged();
    loadPausedRun();
    updateSpaceEstimate();
}

void AppStore::chooseSource(const QUrl& folder) {
    if (const auto path = pathOf(folder)) setSource(standardized(*path));
}

void AppStore::chooseSink(const QUrl& folder) {
    if (const auto path = pathOf(folder)) setSink(standardized(*path));
}

void AppStore::chooseRecentSource(int index) {
    const auto& folders = recentFolders_.sourceFolders();
    if (index < 0 || static_cast<std::size_t>(index) >= folders.size()) return;
    // A copy, as choosing a folder makes the list anew.
    setSource(fs::path(folders[static_cast<std::size_t>(index)]));
}

void AppStore::chooseRecentSink(int index) {
    const auto& folders = recentFolders_.destinationFolders();
    if (index < 0 || static_cast<std::size_t>(index) >= folders.size()) return;
    setSink(fs::path(folders[static_cast<std::size_t>(index)]));
}

void AppStore::takeDropped(const QList<QUrl>& urls) {
    std::vector<fs::path> folders;
    for (const QUrl& url : urls) {
        if (const auto path = pathOf(url)) folders.push_back(standardized(*path));
    }
    std::erase_if(folders, [](const fs::path& folder) { return !isFolder(folder); });
    const bool onlySinkIsMissing = source_ && !sink_;
    if (folders.size() == 1 && onlySinkIsMissing) {
        setSink(folders.front());
    } else {
        open(folders);
    }
}

void AppStore::open(const std::vector<fs::path>& folders) {
    if (!folders.empty()) setSource(folders[0]);
    if (folders.size() > 1) setSink(folders[1]);
}

void AppStore::updateSpaceEstimate() {
    spaceEstimate_.reset();
    if (source_ && sink_ && scanRefusal_.isEmpty() && scannedBytes_ >= 1) {
        const std::int64_t posters = scan_ ? Poster::roomFor(scan_->paths) : 0;
        spaceEstimate_ = services_.estimate(scannedBytes_ + posters, *source_, *sink_);
    }
    Q_EMIT spaceEstimateChanged();
}

QUrl AppStore::sourceUrl() const {
    return source_ ? urlOf(*source_) : QUrl();
}

QUrl AppStore::sinkUrl() const {
    return sink_ ? urlOf(*sink_) : QUrl();
}

}  // namespace ornivo::app
