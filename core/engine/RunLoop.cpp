#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "engine/AuditedFiles.h"
#include "engine/LookAhead.h"
#include "engine/Run.h"
#include "engine/SortEngine.h"
#include "engine/Warnings.h"
#include "identification/BirdClassifierLabels.h"
#include "platform/Paths.h"
#include "review/Poster.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

constexpr const char* lowConfidenceNotice = "Low confidence — review _Uncertain/";

}  // namespace

unsigned SortEngine::defaultWorkers() {
    return std::max(1U, std::thread::hardware_concurrency());
}

SortEngine::SortEngine(std::shared_ptr<BirdIdentifying> identifier,
                       std::shared_ptr<JobController> jobController, std::shared_ptr<Files> files,
                       unsigned workers)
    : identifier_(std::move(identifier)),
      jobController_(std::move(jobController)),
      audit_(RunLaws::areChecked && files->changesDisk() ? std::make_shared<AuditedFiles>(files)
                                                         : nullptr),
      files_(audit_ ? audit_ : std::move(files)),
      workers_(workers) {}

SortEngine::~SortEngine() = default;

void SortEngine::pause() {
    jobController_->pause();
}

void SortEngine::resume() {
    jobController_->resume();
}

void SortEngine::cancel() {
    jobController_->stop();
}

EventStream<SortEngine::Event> SortEngine::run(RunInput input) {
    if (input.startIndex > input.paths.size()) {
        std::fputs("SortEngine::run: startIndex lies beyond the list\n", stderr);
        std::abort();
    }
    if (runThread_.joinable()) runThread_.join();
    // Here and not on the thread, so that a pause or a stop right after this call is not lost.
    jobController_->reset();
    EventStream<Event> stream;
    runThread_ = std::jthread(
        [this, sink = stream, input = std::move(input)](const std::stop_token& stop) mutable {
            if (!stop.stop_requested()) runLoop(input, sink, stop);
            sink.finish();
        });
    return stream;
}

void SortEngine::runLoop(const RunInput& input, EventStream<Event>& sink,
                         const std::stop_token& stop) {
    const auto started = std::chrono::steady_clock::now();
    if (input.startIndex == 0) forgetPastRun();
    Run run{.input = input,
            .sink = sink,
            .stop = stop,
            .started = started,
            .gate = ConfidencePolicy::threshold(input.options.confidence),
            .grouping = Shots::group(input.paths),
            .lastProcessed = static_cast<int>(input.startIndex) - 1,
            .roomForRecord = nullptr,
            .roomForPage = nullptr,
            .laws = {},
            .sort = carried_.sort,
            .find = carried_.find,
            .perSpecies = carried_.perSpecies,
            .unidentified = carried_.unidentified,
            .warnings = carried_.warnings,
            .uncertainBySequence = {},
            .frames = {}};
    run.sort.total = run.find.total = static_cast<int>(input.paths.size());

    keepRoomForEnding(run);
    if (audit_) run.laws.emplace(*audit_, input, run.grouping, carried_.sort, carried_.find);
    end(run, takeFiles(run));
}

void SortEngine::forgetPastRun() {
    perSpeciesCounter_.clear();
    reviewRows_.clear();
    carried_ = {};
}

StopReason SortEngine::takeFiles(Run& run) {
    const std::vector<std::size_t> leaders = run.leaders();
    LookAhead<PreparedShot> ahead(leaders.size(), workers_, [&](std::size_t number) {
        return prepare(run, leaders[number]);
    });
    for (std::size_t i = run.input.startIndex; i < run.input.paths.size(); ++i) {
        if (!jobController_->check(run.stop)) return StopReason::userCancelled();
        const int index = static_cast<int>(i);
        run.sink.emit(ProgressUpdate{index, run.sort.total, run.fileName(i), run.perSpecies,
                                     run.unidentified});
        if (!run.isFollower(i) && takeShot(run, i, ahead) == Space::exhausted) {
            run.sink.emit(DiskFull{index});
            return StopReason::diskFull();
        }
        ++run.sort.processed;
        ++run.find.processed;
        run.lastProcessed = index;
    }
    return StopReason::completed();
}

SortEngine::PreparedShot SortEngine::prepare(const Run& run, std::size_t index) {
    const std::vector<fs::path> shot = run.shot(index);
    PreparedShot prepared{classifyShot(shot, run.input.options.assumedLocation), std::nullopt};
    const bool isCalled = run.gate <= prepared.classified.species.confidence();
    if (!isCalled && makesPosters(run.input)) prepared.poster = Poster::make(shot);
    return prepared;
}

/// The page reaches no file in a day folder. Where originals go, nothing but the shots themselves
/// is written.
bool SortEngine::makesPosters(const RunInput& input) const {
    const bool isWanted = input.mode == AppMode::sort && input.options.mode == CopyMode::keep;
    return isWanted && !input.options.dateSubfolders && files_->changesDisk();
}

SortEngine::Space SortEngine::takeShot(Run& run, std::size_t index,
                                       LookAhead<PreparedShot>& ahead) {
    std::optional<PreparedShot> prepared;
    try {
        prepared = ahead.take();
    } catch (const std::exception& error) {
        run.fail(error);
        return Space::left;
    }
    const ClassifiedShot& shot = prepared->classified;
    const bool isCalled = run.gate <= shot.species.confidence();
    run.sink.emit(Prediction{
        shot.species, isCalled ? std::nullopt : std::optional<std::string>(lowConfidenceNotice)});
    run.rememberFrame(index, shot);
    try {
        run.isFind() ? fileForFind(run, index, shot, isCalled)
                     : fileForSort(run, index, *prepared, isCalled);
    } catch (const std::exception& error) {
        if (isOutOfSpace(error)) return Space::exhausted;
        run.fail(error);
    }
    if (run.isFind()) ++run.find.scanned;
    return Space::left;
}

void SortEngine::fileForSort(Run& run, std::size_t index, const PreparedShot& prepared,
                             bool isCalled) {
    const ClassifiedShot& shot = prepared.classified;
    const std::string folder = isCalled ? displayName(shot.species) : uncertainFolderName;
    append(run.warnings, place(run.input.paths[index], run.partners(index), run.input.destination,
                               folder, run.input.options, shot.metadata));
    if (isCalled) {
        ++run.sort.sorted;
        ++run.perSpecies[folder];
        return;
    }
    ++run.sort.unidentified;
    ++run.unidentified;
    ++run.sort.lowConfidence;
    run.uncertainBySequence[run.sequence(index)] = *lastPlacedURL_;
    reviewRows_.push_back({lastPathComponent(*lastPlacedURL_), shot.species.topK});
    try {
        appendReviewRow(run.input.destination, run.fileName(index), shot.species);
    } catch (const std::exception&) {
        // The list is a convenience: the shot is where it belongs, and on the page.
    }
    if (!run.input.options.dateSubfolders) keepStandIn(prepared.poster);
}

void SortEngine::fileForFind(Run& run, std::size_t index, const ClassifiedShot& shot,
                             bool isCalled) {
    if (!isCalled) {
        ++run.find.lowConfidence;
        return;
    }
    const auto& targets = run.input.targetSpecies;
    const auto target = std::find_if(targets.begin(), targets.end(), [&](const BirdSpecies& each) {
        return matches(shot.species, each);
    });
    if (target == targets.end()) return;
    append(run.warnings,
           placeFind(run.input.paths[index], run.partners(index), run.input.destination, *target,
                     run.input.options, shot.metadata));
    ++run.find.matched;
}

}  // namespace ornivo
