#pragma once

#include <QtQml/qqmlregistration.h>

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QVariant>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/AppServices.h"
#include "app/BackgroundWork.h"
#include "app/EventPump.h"
#include "app/RecentFoldersStore.h"
#include "engine/PausedRun.h"
#include "engine/SortEngine.h"
#include "identification/PlaceGazetteer.h"
#include "identification/RangeTable.h"
#include "media/PhotoLocationSurveyor.h"
#include "media/SpaceEstimator.h"
#include "review/ReviewDecisions.h"
#include "vocabulary/JobState.h"
#include "vocabulary/ScanResult.h"

namespace ornivo::app {

/// The one state object of the application: the folders chosen, the last scan, the options of the
/// next run, the run under way and what the last one found. It turns presses of buttons into calls
/// of the engine, and the engine's events into state. Everything here lives on the main thread.
///
/// Screens in QML read the properties. One that may be absent is `undefined` there while it is, and
/// otherwise a value to hand on to a function in C++, or a plain text or number. C++ reads the same
/// state, in the core's own types, with the getters under `public`.
class AppStore : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one store, made by the program.")

    Q_PROPERTY(QUrl source READ sourceUrl NOTIFY sourceChanged)
    /// A PhotoLocationSurvey.
    Q_PROPERTY(QVariant locationSurvey READ locationSurveyValue NOTIFY locationSurveyChanged)
    Q_PROPERTY(QUrl sink READ sinkUrl NOTIFY sinkChanged)
    /// A ScanResult.
    Q_PROPERTY(QVariant scan READ scanValue NOTIFY scanChanged)
    Q_PROPERTY(bool scanning READ scanning NOTIFY scanningChanged)
    /// Empty unless the source was refused.
    Q_PROPERTY(QString scanRefusal READ scanRefusal NOTIFY scanRefusalChanged)
    /// A SpaceEstimate.
    Q_PROPERTY(QVariant spaceEstimate READ spaceEstimateValue NOTIFY spaceEstimateChanged)

    Q_PROPERTY(Originals originals READ originals WRITE setOriginals NOTIFY optionsChanged)
    Q_PROPERTY(bool rename READ rename WRITE setRename NOTIFY optionsChanged)
    Q_PROPERTY(
        bool dateSubfolders READ dateSubfolders WRITE setDateSubfolders NOTIFY optionsChanged)
    /// A slider position, 0 to 100.
    Q_PROPERTY(int confidence READ confidence WRITE setConfidence NOTIFY optionsChanged)
    /// The confidence from which on a shot is called, 0 to 1.
    Q_PROPERTY(double gate READ gate NOTIFY optionsChanged)

    Q_PROPERTY(Mode appMode READ mode WRITE setMode NOTIFY appModeChanged)
    Q_PROPERTY(
        QString speciesQuery READ speciesQuery WRITE setSpeciesQuery NOTIFY speciesQueryChanged)
    /// A list of BirdSpecies.
    Q_PROPERTY(
        QVariant selectedSpeciesList READ selectedSpeciesValue NOTIFY selectedSpeciesListChanged)
    /// A list of BirdSpecies.
    Q_PROPERTY(QVariant unrecognisedTargets READ unrecognisedTargetsValue NOTIFY
                   selectedSpeciesListChanged)

    Q_PROPERTY(Job jobState READ job NOTIFY jobStateChanged)
    /// A ProgressUpdate.
    Q_PROPERTY(QVariant progress READ progressValue NOTIFY progressChanged)
    /// An IdentifiedSpecies.
    Q_PROPERTY(QVariant latestPrediction READ latestPredictionValue NOTIFY predictionChanged)
    /// Empty when the engine had nothing to add.
    Q_PROPERTY(QString identificationNotice READ identificationNotice NOTIFY predictionChanged)
    /// A SortResult.
    Q_PROPERTY(QVariant sortResult READ sortResultValue NOTIFY sortResultChanged)
    /// A FindResult.
    Q_PROPERTY(QVariant findResult READ findResultValue NOTIFY findResultChanged)
    Q_PROPERTY(QVariant pausedAtIndex READ pausedAtIndexValue NOTIFY pausedAtIndexChanged)
    /// A PausedRun.
    Q_PROPERTY(QVariant pausedRun READ pausedRunValue NOTIFY pausedRunChanged)

    Q_PROPERTY(bool isFilingDecisions READ isFilingDecisions NOTIFY isFilingDecisionsChanged)

    Q_PROPERTY(bool showingSettings READ showingSettings WRITE setShowingSettings NOTIFY
                   showingSettingsChanged)
    Q_PROPERTY(
        bool pickingSource READ pickingSource WRITE setPickingSource NOTIFY pickingSourceChanged)
    Q_PROPERTY(bool pickingSink READ pickingSink WRITE setPickingSink NOTIFY pickingSinkChanged)

    /// A `RangeTable::RegionInfo::id`; empty when the user named none.
    Q_PROPERTY(QString assumedRegionID READ assumedRegionID WRITE setAssumedRegionID NOTIFY
                   assumedRegionIDChanged)
    Q_PROPERTY(Bursts burstInheritance READ bursts WRITE setBursts NOTIFY burstInheritanceChanged)

    Q_PROPERTY(bool foldersReady READ foldersReady NOTIFY foldersReadyChanged)
    Q_PROPERTY(QString ctaLabel READ ctaLabel CONSTANT)
    Q_PROPERTY(bool shouldOfferRegion READ shouldOfferRegion NOTIFY shouldOfferRegionChanged)
    Q_PROPERTY(QString version READ version CONSTANT)
    Q_PROPERTY(ornivo::app::RecentFoldersStore* recentFolders READ recentFolders CONSTANT)

public:
    /// The core's enumerations as QML knows them, with the same values.
    enum class Mode { Sort, Find };
    Q_ENUM(Mode)
    enum class Job { Idle, Running, Paused };
    Q_ENUM(Job)
    enum class Originals { Keep, Trash };
    Q_ENUM(Originals)
    enum class Bursts { Off, ConfirmedOnly, ConfirmedAndCorrected };
    Q_ENUM(Bursts)

    /// The preferences and what `services` refers to outlive the store.
    explicit AppStore(AppServices services, QObject* parent = nullptr);
    /// As `close`, and waits for a scan that has begun.
    ~AppStore() override;

    /// Stops a run in progress at the next file and waits for that, and for decisions being filed.
    /// Nothing can be done with the store afterwards.
    void close();

    /// The tables that the screens read, loaded on first use; absent when they can't be read.
    static const std::optional<RangeTable>& rangeTable();
    static const std::optional<PlaceGazetteer>& gazetteer();

    const std::optional<std::filesystem::path>& source() const { return source_; }
    const std::optional<PhotoLocationSurvey>& locationSurvey() const { return locationSurvey_; }
    const std::optional<std::filesystem::path>& sink() const { return sink_; }
    const std::optional<ScanResult>& scan() const { return scan_; }
    bool scanning() const { return scanning_; }
    QString scanRefusal() const { return scanRefusal_; }
    const std::optional<SpaceEstimate>& spaceEstimate() const { return spaceEstimate_; }
    /// What the files of the last scan take up on their volume.
    std::int64_t scannedBytes() const { return scannedBytes_; }

    const SortOptions& options() const { return options_; }
    bool rename() const { return options_.rename; }
    bool dateSubfolders() const { return options_.dateSubfolders; }
    int confidence() const { return options_.confidence; }
    double gate() const;

    AppMode appMode() const { return appMode_; }
    QString speciesQuery() const { return speciesQuery_; }
    const std::vector<BirdSpecies>& selectedSpeciesList() const { return selectedSpeciesList_; }
    /// The chosen species that the classifier doesn't know by either of their names.
    std::vector<BirdSpecies> unrecognisedTargets() const;

    JobState jobState() const { return jobState_; }
    const std::optional<ProgressUpdate>& progress() const { return progress_; }
    const std::optional<IdentifiedSpecies>& latestPrediction() const { return latestPrediction_; }
    QString identificationNotice() const { return identificationNotice_; }
    const std::optional<SortResult>& sortResult() const { return sortResult_; }
    const std::optional<FindResult>& findResult() const { return findResult_; }
    const std::optional<int>& pausedAtIndex() const { return pausedAtIndex_; }
    const std::optional<PausedRun>& pausedRun() const { return pausedRun_; }

    /// Whether pasted decisions are being filed.
    bool isFilingDecisions() const { return isFilingDecisions_; }

    bool showingSettings() const { return showingSettings_; }
    bool pickingSource() const { return pickingSource_; }
    bool pickingSink() const { return pickingSink_; }

    QString assumedRegionID() const { return assumedRegionID_; }
    BurstInheritance burstInheritance() const { return options_.burstInheritance; }

    bool foldersReady() const;
    QString ctaLabel() const;
    /// Whether the photographs looked at carry no position and the user has named no region.
    bool shouldOfferRegion() const;
    static QString version();
    RecentFoldersStore* recentFolders() { return &recentFolders_; }

    void setOriginals(Originals originals);
    void setRename(bool rename);
    void setDateSubfolders(bool dateSubfolders);
    void setConfidence(int position);
    /// Also clears the results, even when the mode is the present one.
    void setMode(Mode mode);
    void setSpeciesQuery(const QString& query);
    void setShowingSettings(bool showing);
    void setPickingSource(bool picking);
    void setPickingSink(bool picking);
    /// Written to the preferences at once; reaches the next run.
    void setAssumedRegionID(const QString& id);
    void setBursts(Bursts bursts);

    /// Adopts a source and scans it in the background. During a run the folders stay as they are,
    /// also in all that follows here.
    void setSource(const std::filesystem::path& folder);
    /// Adopts a destination, and looks for the record of a run that stopped there.
    void setSink(const std::filesystem::path& folder);
    /// The same, for a folder chosen in QML. What is no local file is ignored.
    Q_INVOKABLE void chooseSource(const QUrl& folder);
    Q_INVOKABLE void chooseSink(const QUrl& folder);
    /// A folder of `recentFolders`, by its place in the list.
    Q_INVOKABLE void chooseRecentSource(int index);
    Q_INVOKABLE void chooseRecentSink(int index);
    /// Folders dropped on the window. A single one becomes the sink if only that is missing;
    /// otherwise the first becomes the source and the second, if there is one, the sink. What is no
    /// folder is ignored.
    Q_INVOKABLE void takeDropped(const QList<QUrl>& folders);
    /// Folders named at the start of the program: a source and perhaps a sink.
    void open(const std::vector<std::filesystem::path>& folders);

    /// The primary button: starts a new run when everything is ready.
    Q_INVOKABLE void tapPrimaryCTA();
    Q_INVOKABLE void pause();
    Q_INVOKABLE void resume();
    /// The run ends at the next file.
    Q_INVOKABLE void stop();

    Q_INVOKABLE void loadPausedRun();
    /// Goes on with the run of the record, at its gate. Starts nothing unless the file at which it
    /// stopped is among those scanned: a run over nothing would end well and forget the record.
    Q_INVOKABLE void resumePausedRun();
    /// Deletes the record; what was filed stays.
    Q_INVOKABLE void discardPausedRun();

    /// Turns what was typed into a target species. Answers false if nothing was typed.
    Q_INVOKABLE bool selectTypedSpecies();
    /// A species already in the list stays where it is.
    Q_INVOKABLE void addSpecies(const QString& commonName, const QString& scientificName);
    Q_INVOKABLE void removeSpecies(const QString& id);

    using DecisionsTaker = std::function<void(const std::optional<ReviewDecisions::Outcome>&)>;
    /// Files the decisions in a text copied from the review page into the sink, in the background,
    /// and then tells `take` what became of them: nothing when the text holds none. Without a sink,
    /// or while others are being filed, nothing happens.
    void fileDecisions(std::string pasted, DecisionsTaker take);

    QUrl sourceUrl() const;
    QUrl sinkUrl() const;
    QVariant locationSurveyValue() const;
    QVariant scanValue() const;
    QVariant spaceEstimateValue() const;
    Originals originals() const { return static_cast<Originals>(options_.mode); }
    Mode mode() const { return static_cast<Mode>(appMode_); }
    QVariant selectedSpeciesValue() const;
    QVariant unrecognisedTargetsValue() const;
    Job job() const { return static_cast<Job>(jobState_); }
    QVariant progressValue() const;
    QVariant latestPredictionValue() const;
    QVariant sortResultValue() const;
    QVariant findResultValue() const;
    QVariant pausedAtIndexValue() const;
    QVariant pausedRunValue() const;
    Bursts bursts() const { return static_cast<Bursts>(options_.burstInheritance); }

Q_SIGNALS:
    void sourceChanged();
    void locationSurveyChanged();
    void sinkChanged();
    void scanChanged();
    void scanningChanged();
    void scanRefusalChanged();
    void spaceEstimateChanged();
    void optionsChanged();
    void appModeChanged();
    void speciesQueryChanged();
    void selectedSpeciesListChanged();
    void jobStateChanged();
    /// Once for all the events that have piled up between two frames, as the two that follow.
    void progressChanged();
    /// `latestPrediction`, `identificationNotice` or both.
    void predictionChanged();
    void pausedAtIndexChanged();
    void sortResultChanged();
    void findResultChanged();
    void pausedRunChanged();
    void isFilingDecisionsChanged();
    void showingSettingsChanged();
    void pickingSourceChanged();
    void pickingSinkChanged();
    void assumedRegionIDChanged();
    void burstInheritanceChanged();
    void foldersReadyChanged();
    void shouldOfferRegionChanged();
    /// A run has come to its end, and everything above says so.
    void runEnded();

private:
    void connectDerivedValues();
    void assumeRegion();
    void clearSourceFindings();
    void takeScan(FileScanner::Scan scan);
    void updateSpaceEstimate();
    void startRun(std::size_t startIndex);
    void clearRunFindings();
    void endRun();
    void setFilingDecisions(bool filing);
    void setJobState(JobState state);
    void setProgress(std::optional<ProgressUpdate> progress);

    /// What an event changed, as bits.
    using Changes = unsigned;
    void applyBatch(std::vector<SortEngine::Event> events);
    void announce(Changes changes);
    Changes apply(ProgressUpdate update);
    Changes apply(SortEngine::Prediction prediction);
    Changes apply(const SortEngine::DiskFull& diskFull);
    Changes apply(SortEngine::SortFinished outcome);
    Changes apply(SortEngine::FindFinished outcome);
    Changes forgetPausedIndex(const StopReason& reason);

    AppServices services_;
    RecentFoldersStore recentFolders_;

    std::optional<std::filesystem::path> source_;
    std::optional<PhotoLocationSurvey> locationSurvey_;
    std::optional<std::filesystem::path> sink_;
    std::optional<ScanResult> scan_;
    bool scanning_ = false;
    QString scanRefusal_;
    std::optional<SpaceEstimate> spaceEstimate_;
    std::int64_t scannedBytes_ = 0;
    SortOptions options_;
    AppMode appMode_ = AppMode::sort;
    QString speciesQuery_;
    std::vector<BirdSpecies> selectedSpeciesList_;
    JobState jobState_ = JobState::idle;
    std::optional<ProgressUpdate> progress_;
    std::optional<IdentifiedSpecies> latestPrediction_;
    QString identificationNotice_;
    std::optional<SortResult> sortResult_;
    std::optional<FindResult> findResult_;
    std::optional<int> pausedAtIndex_;
    std::optional<PausedRun> pausedRun_;
    bool isFilingDecisions_ = false;
    bool showingSettings_ = false;
    bool pickingSource_ = false;
    bool pickingSink_ = false;
    QString assumedRegionID_;

    std::unique_ptr<SortEngine> engine_;
    EventPump pump_;
    /// Last, so that nothing they do comes back to a store that is going.
    BackgroundWork filing_;
    BackgroundWork work_;
};

}  // namespace ornivo::app
