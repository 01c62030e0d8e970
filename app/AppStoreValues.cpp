#include "app/AppStore.h"

namespace ornivo::app {
namespace {

/// The value for QML: `undefined` where it is absent.
template <typename Value>
QVariant shown(const std::optional<Value>& value) {
    return value ? QVariant::fromValue(*value) : QVariant();
}

}  // namespace

QVariant AppStore::locationSurveyValue() const {
    return shown(locationSurvey_);
}

QVariant AppStore::scanValue() const {
    return shown(scan_);
}

QVariant AppStore::spaceEstimateValue() const {
    return shown(spaceEstimate_);
}

QVariant AppStore::selectedSpeciesValue() const {
    return QVariant::fromValue(selectedSpeciesList_);
}

QVariant AppStore::unrecognisedTargetsValue() const {
    return QVariant::fromValue(unrecognisedTargets());
}

QVariant AppStore::progressValue() const {
    return shown(progress_);
}

QVariant AppStore::latestPredictionValue() const {
    return shown(latestPrediction_);
}

QVariant AppStore::sortResultValue() const {
    return shown(sortResult_);
}

QVariant AppStore::findResultValue() const {
    return shown(findResult_);
}

QVariant AppStore::pausedAtIndexValue() const {
    return shown(pausedAtIndex_);
}

QVariant AppStore::pausedRunValue() const {
    return shown(pausedRun_);
}

}  // namespace ornivo::app
