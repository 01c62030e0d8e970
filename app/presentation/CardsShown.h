#pragma once

#include <QObject>

#include "vocabulary/AppMode.h"
#include "vocabulary/JobState.h"

namespace ornivo::app {

/// Which cards the window shows. The mode's buttons and the folders are always there.
struct CardsShown {
    Q_GADGET
    Q_PROPERTY(bool targetSpecies MEMBER targetSpecies)
    Q_PROPERTY(bool pausedRun MEMBER pausedRun)
    Q_PROPERTY(bool options MEMBER options)
    Q_PROPERTY(bool progress MEMBER progress)
    Q_PROPERTY(bool prediction MEMBER prediction)
    Q_PROPERTY(bool sortResult MEMBER sortResult)
    Q_PROPERTY(bool findResult MEMBER findResult)
    Q_PROPERTY(bool preview MEMBER preview)

public:
    bool targetSpecies = false;
    bool pausedRun = false;
    bool options = false;
    bool progress = false;
    bool prediction = false;
    bool sortResult = false;
    bool findResult = false;
    bool preview = false;

    bool operator==(const CardsShown&) const = default;
};

/// What of the state decides which cards there are.
struct CardConditions {
    JobState jobState = JobState::idle;
    AppMode appMode = AppMode::sort;
    bool hasTargets = false;
    bool hasPausedRun = false;
    bool hasProgress = false;
    /// A prediction, a notice, or both.
    bool hasPrediction = false;
    bool hasSortResult = false;
    bool hasFindResult = false;
};

CardsShown cardsShown(const CardConditions& conditions);

}  // namespace ornivo::app
