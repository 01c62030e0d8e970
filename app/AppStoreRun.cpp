#include <array>
#include <utility>
#include <variant>

#include "app/AppStore.h"
#include "identification/CallLevel.h"

namespace ornivo::app {
namespace {

/// The bits of `Changes`, each with what tells of it.
enum Change : unsigned {
    progressBit = 1U << 0U,
    predictionBit = 1U << 1U,
    pausedAtIndexBit = 1U << 2U,
    sortResultBit = 1U << 3U,
    findResultBit = 1U << 4U,
};

struct Announcement {
    unsigned bit;
    void (AppStore::*changed)();
};

constexpr std::array announcements{
    Announcement{progressBit, &AppStore::progressChanged},
    Announcement{predictionBit, &AppStore::predictionChanged},
    Announcement{pausedAtIndexBit, &AppStore::pausedAtIndexChanged},
    Announcement{sortResultBit, &AppStore::sortResultChanged},
    Announcement{findResultBit, &AppStore::findResultChanged},
};

/// Where on the slider a stopped run stood.
int sliderPosition(const PausedRun& run) {
    const auto level = run.callLevel ? fromRawValue<CallLevel>(*run.callLevel) : std::nullopt;
    return level ? slider(*level) : ConfidencePolicy::sliderPosition(run.gate);
}

}  // namespace

void AppStore::tapPrimaryCTA() {
    if (!foldersReady()) return;
    if (appMode_ == AppMode::find && selectedSpeciesList_.empty() && !selectTypedSpecies()) return;
    startRun(0);
}

void AppStore::startRun(std::size_t startIndex) {
    if (!scan_ || !sink_ || startIndex >= scan_->paths.size()) return;
    setJobState(JobState::running);
    if (startIndex == 0) clearRunFindings();
    setProgress(ProgressUpdate{static_cast<int>(startIndex), scan_->total, {}, {}, 0});

    SortEngine::RunInput input;
    input.mode = appMode_;
    input.paths = scan_->paths;
    input.destination = *sink_;
    input.options = options_;
    if (appMode_ == AppMode::find) input.targetSpecies = selectedSpeciesList_;
    input.startIndex = startIndex;
    pump_.follow(
        engine_->run(std::move(input)), [this](auto events) { applyBatch(std::move(events)); },
        [this] { endRun(); });
}

void AppStore::clearRunFindings() {
    sortResult_.reset();
    findResult_.reset();
    latestPrediction_.reset();
    identificationNotice_.clear();
    announce(sortResultBit | findResultBit | predictionBit);
}

void AppStore::endRun() {
    setJobState(JobState::idle);
    setProgress(std::nullopt);
    updateSpaceEstimate();
    loadPausedRun();
    Q_EMIT runEnded();
}

void AppStore::applyBatch(std::vector<SortEngine::Event> events) {
    Changes changes = 0;
    for (SortEngine::Event& event : events) {
        changes |= std::visit([this](auto& each) { return apply(std::move(each)); }, event);
    }
    announce(changes);
}

void AppStore::announce(Changes changes) {
    for (const Announcement& each : announcements) {
        if (changes & each.bit) Q_EMIT(this->*each.changed)();
    }
}

AppStore::Changes AppStore::apply(ProgressUpdate update) {
    progress_ = std::move(update);
    return progressBit;
}

AppStore::Changes AppStore::apply(SortEngine::Prediction prediction) {
    latestPrediction_ = std::move(prediction.species);
    identificationNotice_ = QString::fromStdString(prediction.notice.value_or(""));
    return predictionBit;
}

AppStore::Changes AppStore::apply(const SortEngine::DiskFull& diskFull) {
    pausedAtIndex_ = diskFull.atIndex;
    return pausedAtIndexBit;
}

AppStore::Changes AppStore::apply(SortEngine::SortFinished outcome) {
    sortResult_ = std::move(outcome.result);
    return sortResultBit | forgetPausedIndex(outcome.stopReason);
}

AppStore::Changes AppStore::apply(SortEngine::FindFinished outcome) {
    findResult_ = std::move(outcome.result);
    return findResultBit | forgetPausedIndex(outcome.stopReason);
}

AppStore::Changes AppStore::forgetPausedIndex(const StopReason& reason) {
    if (reason.isResumable()) return 0;
    pausedAtIndex_.reset();
    return pausedAtIndexBit;
}

void AppStore::pause() {
    if (jobState_ != JobState::running) return;
    engine_->pause();
    setJobState(JobState::paused);
}

void AppStore::resume() {
    if (jobState_ != JobState::paused) return;
    engine_->resume();
    setJobState(JobState::running);
}

void AppStore::stop() {
    if (jobState_ != JobState::idle) engine_->cancel();
}

void AppStore::setJobState(JobState state) {
    jobState_ = state;
    Q_EMIT jobStateChanged();
}

void AppStore::setProgress(std::optional<ProgressUpdate> progress) {
    progress_ = std::move(progress);
    Q_EMIT progressChanged();
}

void AppStore::loadPausedRun() {
    pausedRun_ = sink_ ? PausedRun::read(*sink_, *services_.files) : std::nullopt;
    Q_EMIT pausedRunChanged();
}

void AppStore::resumePausedRun() {
    if (!pausedRun_ || jobState_ != JobState::idle) return;
    setConfidence(sliderPosition(*pausedRun_));
    if (pausedRun_->stoppedAtIndex < 0) return;
    startRun(static_cast<std::size_t>(pausedRun_->stoppedAtIndex));
}

void AppStore::discardPausedRun() {
    if (!sink_) return;
    PausedRun::clear(*sink_, *services_.files);
    pausedRun_.reset();
    Q_EMIT pausedRunChanged();
}

}  // namespace ornivo::app
