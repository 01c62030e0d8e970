#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <utility>

#include "engine/PausedRun.h"
#include "engine/PausedRunCoding.h"
#include "engine/Run.h"
#include "engine/SortEngine.h"
#include "identification/BirdClassifierLabels.h"
#include "identification/CallLevel.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "review/Poster.h"
#include "review/PosterFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;
namespace chrono = std::chrono;

/// What a run that met a full disk was, and how far it got.
PausedRun recordOf(const SortEngine::RunInput& input, double gate) {
    PausedRun record;
    record.pausedAt = chrono::floor<chrono::seconds>(chrono::system_clock::now());
    record.reason = PausedRun::Reason::diskFull;
    for (const fs::path& path : input.paths) record.sourcePaths.push_back(path.native());
    record.destination = input.destination.native();
    record.mode = rawValue(input.mode);
    record.gate = gate;
    if (const auto level = callLevelMatching(gate)) record.callLevel = rawValue(*level);
    if (const auto& place = input.options.assumedLocation) {
        record.assumedLocation = PausedRun::textOf(*place);
    }
    record.burstInheritance = rawValue(input.options.burstInheritance);
    record.copyMode = rawValue(input.options.mode);
    record.rename = input.options.rename;
    record.dateSubfolders = input.options.dateSubfolders;
    record.totalPhotos = static_cast<int>(input.paths.size());
    return record;
}

/// Beside what is in a file: folders, the file system's own book-keeping, and the page's frame.
constexpr std::uint64_t overheadOfFile = 64 << 10;

/// What one more shot adds to the review page, with something to spare: its name and three guesses.
std::uint64_t bytesOfCard(std::string_view fileName) {
    constexpr std::uint64_t guesses = 320;
    // A byte of its address takes up to three.
    const std::uint64_t standIn = Poster::isShownPicture(fileName)
                                      ? 0
                                      : PosterFolder::pathFor({}).size() + 3 * fileName.size();
    return fileName.size() + guesses + standIn;
}

bool isAllowed(BurstResolver::Kind kind, BurstInheritance inheritance) {
    return kind == BurstResolver::Kind::confirmed ||
           inheritance == BurstInheritance::confirmedAndCorrected;
}

}  // namespace

void SortEngine::keepRoomForEnding(Run& run) {
    const fs::path& destination = run.input.destination;
    // First the record: without it nobody can go on from here.
    const std::uint64_t record = encoded(recordOf(run.input, run.gate)).size();
    run.roomForRecord = files_->keepRoom(destination, record + overheadOfFile);
    if (run.isFind()) return;

    std::uint64_t cards = 0;
    for (const ReviewPage::Row& row : reviewRows_) cards += bytesOfCard(row.fileName);
    for (const std::size_t leader : run.leaders()) cards += bytesOfCard(run.fileName(leader));
    run.roomForPage = files_->keepRoom(destination, cards + overheadOfFile);
}

void SortEngine::end(Run& run, const StopReason& reason) {
    const fs::path& destination = run.input.destination;
    const bool isCompleted = reason == StopReason::completed();
    const bool isDiskFull = reason == StopReason::diskFull();
    run.roomForPage.reset();
    // A record to come needs its room until then: a long page might take it.
    if (!isDiskFull) run.roomForRecord.reset();
    if (isCompleted) promoteBursts(run);
    if (!run.isFind()) writeReviewPage(destination, run.gate);
    if (isCompleted) PausedRun::clear(destination, *files_);
    if (isDiskFull) {
        run.roomForRecord.reset();
        PausedRun record = recordOf(run.input, run.gate);
        record.stoppedAtIndex = run.lastProcessed + 1;
        record.sortedSoFar = run.sort.sorted;
        record.uncertainSoFar = run.sort.unidentified;
        record.write(destination, *files_);
    }
    finish(run, reason);
}

void SortEngine::promoteBursts(Run& run) {
    const BurstInheritance inheritance = run.input.options.burstInheritance;
    if (run.isFind() || inheritance == BurstInheritance::off) return;
    if (run.uncertainBySequence.empty()) return;
    const BurstResolver resolver(/*window=*/2, /*secondsWindow=*/4, /*searchDepth=*/3, run.gate);
    for (const auto& promotion : resolver.resolve(std::move(run.frames))) {
        if (!isAllowed(promotion.kind, inheritance)) continue;
        const auto placed = run.uncertainBySequence.find(promotion.sequence);
        if (placed == run.uncertainBySequence.end()) continue;
        promote(run, placed->second, BirdClassifierLabels::displayName(promotion.to));
    }
}

void SortEngine::promote(Run& run, const fs::path& file, const std::string& folder) {
    const std::string name = lastPathComponent(file);
    try {
        if (!moveOutOfUncertain(file, run.input.destination, folder)) return;
    } catch (const std::exception& error) {
        run.warnings.push_back("Could not file " + wellFormed(name) +
                               " from its burst: " + error.what());
        return;
    }
    std::erase_if(reviewRows_, [&](const ReviewPage::Row& row) { return row.fileName == name; });
    --run.sort.unidentified;
    --run.unidentified;
    ++run.sort.sorted;
    ++run.sort.burstPromoted;
    ++run.perSpecies[folder];
}

void SortEngine::finish(Run& run, const StopReason& reason) {
    const chrono::duration<double> worked = chrono::steady_clock::now() - run.started;
    const double elapsed = carried_.elapsedSeconds + worked.count();
    const bool isStopped = reason != StopReason::completed();

    run.sort.elapsedSeconds = run.find.elapsedSeconds = elapsed;
    run.sort.stopReason = run.find.stopReason = reason;
    run.sort.stopped = run.find.stopped = isStopped;
    run.sort.perSpecies = run.perSpecies;
    run.sort.warnings = run.find.warnings = run.warnings;
    carried_ = {run.sort, run.find, run.perSpecies, run.unidentified, run.warnings, elapsed};

    // Before the reader is told, who may then move what has been filed.
    if (run.laws) run.laws->assertHeld(run.lastProcessed, run.sort, run.find);
    jobController_->markIdle();
    if (run.isFind()) {
        run.sink.emit(FindFinished{run.lastProcessed, reason, run.find});
    } else {
        run.sink.emit(SortFinished{run.lastProcessed, reason, run.sort});
    }
    reviewCSVHandle_.reset();
}

}  // namespace ornivo
