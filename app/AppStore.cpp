#include "app/AppStore.h"

#include <QSettings>
#include <algorithm>
#include <utility>

#include "app/Preferences.h"

namespace ornivo::app {
namespace {

template <typename Shown, typename Core>
constexpr bool areAlike(Shown shown, Core core) {
    return static_cast<int>(shown) == static_cast<int>(core);
}

static_assert(areAlike(AppStore::Mode::Sort, AppMode::sort) &&
              areAlike(AppStore::Mode::Find, AppMode::find));
static_assert(areAlike(AppStore::Job::Idle, JobState::idle) &&
              areAlike(AppStore::Job::Running, JobState::running) &&
              areAlike(AppStore::Job::Paused, JobState::paused));
static_assert(areAlike(AppStore::Originals::Keep, CopyMode::keep) &&
              areAlike(AppStore::Originals::Trash, CopyMode::trashOriginal));
static_assert(areAlike(AppStore::Bursts::Off, BurstInheritance::off) &&
              areAlike(AppStore::Bursts::ConfirmedOnly, BurstInheritance::confirmedOnly) &&
              areAlike(AppStore::Bursts::ConfirmedAndCorrected,
                       BurstInheritance::confirmedAndCorrected));

/// What a slider or a preference may hold lies within these.
constexpr int lastPosition = 100;

}  // namespace

AppStore::AppStore(AppServices services, QObject* parent)
    : QObject(parent),
      services_(std::move(services)),
      recentFolders_(*services_.preferences),
      assumedRegionID_(Preferences::assumedRegionID(*services_.preferences)),
      engine_(std::make_unique<SortEngine>(services_.identifier, std::make_shared<JobController>(),
                                           services_.files, services_.workers)) {
    options_.confidence = ConfidencePolicy::defaultSlider;
    options_.burstInheritance = Preferences::burstInheritance(*services_.preferences);
    assumeRegion();
    connectDerivedValues();
}

AppStore::~AppStore() {
    close();
}

void AppStore::close() {
    pump_.stop();
    engine_.reset();
    filing_.finish();
}

const std::optional<RangeTable>& AppStore::rangeTable() {
    static const std::optional<RangeTable> table = RangeTable::bundled();
    return table;
}

const std::optional<PlaceGazetteer>& AppStore::gazetteer() {
    static const std::optional<PlaceGazetteer> table = PlaceGazetteer::bundled();
    return table;
}

QString AppStore::version() {
    return QStringLiteral(ORNIVO_VERSION);
}

QString AppStore::ctaLabel() const {
    return QStringLiteral("Sort Photos");
}

void AppStore::connectDerivedValues() {
    for (const auto changed : {&AppStore::scanChanged, &AppStore::jobStateChanged,
                               &AppStore::sourceChanged, &AppStore::sinkChanged,
                               &AppStore::appModeChanged, &AppStore::selectedSpeciesListChanged}) {
        connect(this, changed, this, &AppStore::foldersReadyChanged);
    }
    for (const auto changed :
         {&AppStore::assumedRegionIDChanged, &AppStore::locationSurveyChanged}) {
        connect(this, changed, this, &AppStore::shouldOfferRegionChanged);
    }
}

bool AppStore::foldersReady() const {
    const bool hasFiles = scan_ && scan_->total >= 1;
    const bool knowsWhat = appMode_ == AppMode::sort || !selectedSpeciesList_.empty();
    return hasFiles && jobState_ == JobState::idle && source_ && sink_ && knowsWhat;
}

bool AppStore::shouldOfferRegion() const {
    return assumedRegionID_.isEmpty() && locationSurvey_ && locationSurvey_->foundNone();
}

double AppStore::gate() const {
    return ConfidencePolicy::threshold(options_.confidence);
}

void AppStore::setOriginals(Originals originals) {
    options_.mode = static_cast<CopyMode>(originals);
    Q_EMIT optionsChanged();
}

void AppStore::setRename(bool rename) {
    options_.rename = rename;
    Q_EMIT optionsChanged();
}

void AppStore::setDateSubfolders(bool dateSubfolders) {
    options_.dateSubfolders = dateSubfolders;
    Q_EMIT optionsChanged();
}

void AppStore::setConfidence(int position) {
    options_.confidence = std::clamp(position, 0, lastPosition);
    Q_EMIT optionsChanged();
}

void AppStore::setMode(Mode mode) {
    appMode_ = static_cast<AppMode>(mode);
    sortResult_.reset();
    findResult_.reset();
    Q_EMIT appModeChanged();
    Q_EMIT sortResultChanged();
    Q_EMIT findResultChanged();
}

void AppStore::setShowingSettings(bool showing) {
    if (std::exchange(showingSettings_, showing) != showing) Q_EMIT showingSettingsChanged();
}

void AppStore::setPickingSource(bool picking) {
    if (std::exchange(pickingSource_, picking) != picking) Q_EMIT pickingSourceChanged();
}

void AppStore::setPickingSink(bool picking) {
    if (std::exchange(pickingSink_, picking) != picking) Q_EMIT pickingSinkChanged();
}

void AppStore::setAssumedRegionID(const QString& id) {
    assumedRegionID_ = id;
    Preferences::setAssumedRegionID(*services_.preferences, id);
    assumeRegion();
    Q_EMIT assumedRegionIDChanged();
    Q_EMIT optionsChanged();
}

void AppStore::assumeRegion() {
    options_.assumedLocation.reset();
    if (assumedRegionID_.isEmpty() || !rangeTable()) return;
    const auto region = rangeTable()->region(assumedRegionID_.toStdString());
    if (region) options_.assumedLocation = region->representativePoint();
}

void AppStore::setBursts(Bursts bursts) {
    options_.burstInheritance = static_cast<BurstInheritance>(bursts);
    Preferences::setBurstInheritance(*services_.preferences, options_.burstInheritance);
    Q_EMIT burstInheritanceChanged();
    Q_EMIT optionsChanged();
}

}  // namespace ornivo::app
