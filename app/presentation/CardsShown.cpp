#include "app/presentation/CardsShown.h"

namespace ornivo::app {

CardsShown cardsShown(const CardConditions& conditions) {
    const bool isIdle = conditions.jobState == JobState::idle;
    const bool isFind = conditions.appMode == AppMode::find;
    const bool hasResult = conditions.hasSortResult || conditions.hasFindResult;
    return {
        .targetSpecies = isFind && isIdle,
        .pausedRun = isIdle && conditions.hasPausedRun,
        .options = isIdle,
        .progress = !isIdle && conditions.hasProgress,
        .prediction = conditions.hasPrediction,
        .sortResult = conditions.hasSortResult,
        .findResult = !conditions.hasSortResult && conditions.hasFindResult,
        // A search has no outcome to show before it knows what for.
        .preview = isIdle && !hasResult && (!isFind || conditions.hasTargets),
    };
}

}  // namespace ornivo::app
