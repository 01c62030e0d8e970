#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <variant>
#include <vector>

#include "engine/EventStream.h"
#include "engine/JobController.h"
#include "media/PhotoMetadata.h"
#include "media/SidecarIndex.h"
#include "media/VideoDecoder.h"
#include "platform/Files.h"
#include "review/ReviewPage.h"
#include "review/UncertainFolder.h"
#include "vocabulary/AppMode.h"
#include "vocabulary/BirdIdentifying.h"
#include "vocabulary/BirdSpecies.h"
#include "vocabulary/FindResult.h"
#include "vocabulary/ProgressUpdate.h"
#include "vocabulary/SortOptions.h"
#include "vocabulary/SortResult.h"

namespace ornivo {

class AuditedFiles;
struct LyingShot;
template <typename Result>
class LookAhead;

/// Walks a run's list of files, has each shot classified, files it, counts, and reports.
/// One engine serves every run of a process; it remembers the totals of the last run, so that one
/// which stopped at a full disk can go on.
///
/// `run`, `pause`, `resume` and `cancel` may be called from any thread, `run` by one at a time.
class SortEngine {
public:
    static constexpr const char* uncertainFolderName = ornivo::uncertainFolderName;
    static constexpr const char* reviewCSVName = "review.csv";
    static constexpr const char* reviewPageName = "review.html";

    /// A run as the application asks for it.
    struct RunInput {
        AppMode mode = AppMode::sort;
        /// The files, in the scan's order.
        std::vector<std::filesystem::path> paths;
        std::filesystem::path destination;
        SortOptions options;
        /// In Find mode the species searched for, in the user's order.
        std::vector<BirdSpecies> targetSpecies;
        /// Where in `paths` to begin: 0 for a new run, where it stopped for a resumed one.
        std::size_t startIndex = 0;
    };

    /// A shot has been classified; without a species, a shot has failed for the reason in `notice`.
    struct Prediction {
        std::optional<IdentifiedSpecies> species;
        std::optional<std::string> notice;

        bool operator==(const Prediction&) const = default;
    };

    /// The destination has run out of space at the file with this index.
    struct DiskFull {
        int atIndex = 0;

        bool operator==(const DiskFull&) const = default;
    };

    /// How a run ended; always its last event.
    template <typename Result>
    struct Outcome {
        /// Index of the last file fully dealt with, -1 if none.
        int lastProcessedIndex = -1;
        StopReason stopReason = StopReason::completed();
        Result result;

        bool operator==(const Outcome&) const = default;
    };
    using SortFinished = Outcome<SortResult>;
    using FindFinished = Outcome<FindResult>;

    using Event = std::variant<ProgressUpdate, Prediction, DiskFull, SortFinished, FindFinished>;

    /// As many threads as the machine runs at once.
    static unsigned defaultWorkers();

    /// `workers` threads classify the shots ahead of the one being filed; with none, each shot is
    /// classified when its turn comes. What is observed of a run is the same either way.
    SortEngine(std::shared_ptr<BirdIdentifying> identifier,
               std::shared_ptr<JobController> jobController,
               std::shared_ptr<Files> files = Files::system(), unsigned workers = defaultWorkers());
    /// Stops a run in progress at the next file and waits for that.
    ~SortEngine();
    SortEngine(const SortEngine&) = delete;
    SortEngine& operator=(const SortEngine&) = delete;

    /// Starts a run on a thread of its own and answers its events; a run that is still going is
    /// waited for first. Dropping the stream does not end the run. A `startIndex` beyond the list
    /// is a programming error and ends the process.
    EventStream<Event> run(RunInput input);

    void pause();
    void resume();
    void cancel();

    // The steps of a run. They are called one at a time, and not from outside while a run is going.

    // Classification: what bird is it? These may run on several threads at once, and raise what
    // the last file or frame failed with when none gave an answer.

    struct ClassifiedShot {
        IdentifiedSpecies species;
        PhotoMetadata metadata;
    };

    /// The surest answer among the stills of a shot, leading file first; among its clips if it has
    /// no still. The metadata is that of the first file that gave an answer.
    ClassifiedShot classifyShot(const std::vector<std::filesystem::path>& urls,
                                const std::optional<PhotoLocation>& assumedLocation);

    /// One file. A position in the file goes before the assumed one.
    ClassifiedShot classify(const std::filesystem::path& url,
                            const std::optional<PhotoLocation>& assumedLocation);

    ClassifiedShot classifyVideo(const std::filesystem::path& url,
                                 const std::optional<PhotoLocation>& assumedLocation);

    /// The surest answer among the frames of a clip; no vote is taken.
    ClassifiedShot classifyFrames(const VideoDecoder::SampledClip& clip,
                                  const std::optional<PhotoLocation>& assumedLocation);

    // Filing. Nothing is ever overwritten, and a source goes, to the trash, only once its copy
    // stands. The texts answered are warnings for the user.

    /// Copies a shot with its companions into a species folder or `_Uncertain`, and disposes of
    /// the sources. Raises `Error` if the leading file could not be filed; then nothing was.
    std::vector<std::string> place(const std::filesystem::path& source,
                                   const std::vector<std::filesystem::path>& shotPartners,
                                   const std::filesystem::path& baseDest, const std::string& folder,
                                   const SortOptions& options, const PhotoMetadata& metadata);

    /// The same for a match of a Find run, into a folder named after the species searched for.
    std::vector<std::string> placeFind(const std::filesystem::path& source,
                                       const std::vector<std::filesystem::path>& shotPartners,
                                       const std::filesystem::path& baseDest,
                                       const BirdSpecies& species, const SortOptions& options,
                                       const PhotoMetadata& metadata);

    struct PlacedCompanions {
        /// The companions that were copied, as they lie beside the source.
        std::vector<std::filesystem::path> copied;
        std::vector<std::string> warnings;
    };

    /// Copies a photograph's companion files to where the photograph was placed, named after it.
    PlacedCompanions placeCompanions(const std::filesystem::path& photo,
                                     const std::filesystem::path& besidePlaced,
                                     Durability durability);

    /// Moves a filed source and its companions to the trash if the options say so.
    std::vector<std::string> disposeOriginal(const std::filesystem::path& source,
                                             const std::vector<std::filesystem::path>& companions,
                                             const SortOptions& options);

    /// Moves a shot with all that lies beside it from `_Uncertain` to a species folder. Answers
    /// false if it is no longer there. Raises `Error` if its leading file could not be moved.
    bool moveOutOfUncertain(const std::filesystem::path& from,
                            const std::filesystem::path& baseDest, const std::string& folder);

    /// A name like this one at which nothing exists yet.
    std::filesystem::path resolveCollision(const std::filesystem::path& url) const;

    /// A frame's number in the camera's series: the digits at the end of its name.
    static std::int64_t sequenceNumber(std::string_view name, std::int64_t fallback);

    /// Whether a failure, or one of those behind it, is a volume that ran out of space.
    static bool isOutOfSpace(const std::exception& error);

    /// Whether the best guess is the species searched for, by either of its names.
    static bool matches(const IdentifiedSpecies& species, const BirdSpecies& target);

    // Review output.

    /// Adds a shot to `review.csv`. Raises `Error`.
    void appendReviewRow(const std::filesystem::path& baseDest, const std::string& fileName,
                         const IdentifiedSpecies& species);

    /// Writes the review page of the shots left in `_Uncertain`, in place of an older one. With no
    /// such shot nothing is written. A failure is ignored.
    void writeReviewPage(const std::filesystem::path& baseDest, double gate);

    /// Keeps a picture for the page to show in place of the shot that was placed last, where
    /// browsers can't show its file: a partner of it, or else the poster that was made of it, if
    /// any. What can't be kept is left out.
    void keepStandIn(const std::optional<std::string>& poster);

    /// The shots of this run, and of the one it resumed, that are in `_Uncertain`.
    const std::vector<ReviewPage::Row>& reviewRows() const { return reviewRows_; }

    /// Where the last `place` put its leading file.
    const std::optional<std::filesystem::path>& lastPlacedURL() const { return lastPlacedURL_; }

private:
    /// The totals with which the last run ended.
    struct Carried {
        SortResult sort;
        FindResult find;
        std::map<std::string, int> perSpecies;
        int unidentified = 0;
        std::vector<std::string> warnings;
        double elapsedSeconds = 0;
    };

    struct Run;
    /// A shot as it is made ready ahead of its turn.
    struct PreparedShot {
        ClassifiedShot classified;
        /// For the review page; only of a shot that goes there and needs one.
        std::optional<std::string> poster;
    };
    enum class Space { left, exhausted };

    void runLoop(const RunInput& input, EventStream<Event>& sink, const std::stop_token& stop);
    void forgetPastRun();
    /// Keeps room in the destination for what the run writes at its end, should it fill up before.
    void keepRoomForEnding(Run& run);
    StopReason takeFiles(Run& run);
    PreparedShot prepare(const Run& run, std::size_t index);
    bool makesPosters(const RunInput& input) const;
    Space takeShot(Run& run, std::size_t index, LookAhead<PreparedShot>& ahead);
    void fileForSort(Run& run, std::size_t index, const PreparedShot& prepared, bool isCalled);
    void fileForFind(Run& run, std::size_t index, const ClassifiedShot& shot, bool isCalled);
    void end(Run& run, const StopReason& reason);
    void promoteBursts(Run& run);
    void promote(Run& run, const std::filesystem::path& file, const std::string& folder);
    void finish(Run& run, const StopReason& reason);

    IdentifiedSpecies identify(const Bitmap& image, std::uint32_t orientation,
                               const IdentificationContext& context);
    IdentificationContext contextOf(const PhotoMetadata& metadata,
                                    const std::optional<PhotoLocation>& assumedLocation) const;
    std::filesystem::path makeTarget(const std::filesystem::path& source,
                                     const std::filesystem::path& folder,
                                     const SortOptions& options, const PhotoMetadata& metadata);
    std::string nextName(const std::string& folder, const std::filesystem::path& source);
    std::vector<std::string> placeFile(const std::filesystem::path& source,
                                       const std::filesystem::path& dest,
                                       const SortOptions& options);
    /// The shot in `_Uncertain` that this file leads.
    LyingShot shotLyingAt(const std::filesystem::path& file);

    std::shared_ptr<BirdIdentifying> identifier_;
    std::shared_ptr<JobController> jobController_;
    /// What a run did to the disk, in builds that check the laws at its end; otherwise null, as
    /// with files that only pretend.
    std::shared_ptr<AuditedFiles> audit_;
    std::shared_ptr<Files> files_;
    unsigned workers_;
    /// Held during a call of the identifier, which has one caller at a time.
    std::mutex identifying_;

    /// Running numbers of the renamed files of each species folder.
    std::map<std::string, int> perSpeciesCounter_;
    std::unique_ptr<AppendingFile> reviewCSVHandle_;
    std::vector<ReviewPage::Row> reviewRows_;
    Carried carried_;
    SidecarIndex sidecarIndex_;
    std::optional<std::filesystem::path> lastPlacedURL_;
    /// Where the last `place` put the other files of its shot.
    std::vector<std::filesystem::path> lastPlacedPartners_;

    /// Last, so that it has ended before what it uses goes.
    std::jthread runThread_;
};

}  // namespace ornivo
