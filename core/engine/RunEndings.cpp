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

bool isAllowed(BurstResolver::Kind kind, BurstInheritance inheritance) {
    return kind == BurstResolver::Kind::confirmed ||
           inheritance == BurstInheritance::confirmedAndCorrected;
}

}  // namespace

std::unique_ptr<KeptRoom> SortEngine::keepRoomForEnding(const RunInput& input, double gate) {
    // Folders and the file system's own book-keeping.
    constexpr std::uint64_t overhead = 64 << 10;
    // A card of the page holds a name and three guesses.
    constexpr std::uint64_t bytesOfCard = 1 << 10;
    const bool isFind = input.mode == AppMode::find;
    const std::uint64_t newCards = isFind ? 0 : input.paths.size() - input.startIndex;
    const std::uint64_t cards = reviewRows_.size() + newCards;
    const std::uint64_t record = encoded(recordOf(input, gate)).size() + overhead;
    auto room = files_->keepRoom(input.destination, record + cards * bytesOfCard);
    // Without room for the page the record is worth keeping some for all the same.
    return room ? std::move(room) : files_->keepRoom(input.destination, record);
}

void SortEngine::end(Run& run, const StopReason& reason) {
    const fs::path& destination = run.input.destination;
    run.room.reset();
    if (reason == StopReason::completed()) promoteBursts(run);
    writeReviewPage(destination, run.gate);
    if (reason == StopReason::completed()) PausedRun::clear(destination, *files_);
    if (reason == StopReason::diskFull()) {
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

    jobController_->markIdle();
    if (run.isFind()) {
        run.sink.emit(FindFinished{run.lastProcessed, reason, run.find});
    } else {
        run.sink.emit(SortFinished{run.lastProcessed, reason, run.sort});
    }
    reviewCSVHandle_.reset();
}

}  // namespace ornivo
