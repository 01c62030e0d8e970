#include "app/presentation/PredictionPresenter.h"

namespace ornivo::app {

void PredictionPresenter::follow(AppStore& store) {
    connect(&store, &AppStore::predictionChanged, this, &PredictionPresenter::refresh);
    connect(&store, &AppStore::optionsChanged, this, &PredictionPresenter::refresh);
    refresh();
}

void PredictionPresenter::refresh() {
    const PredictionText text = predictionText(store()->latestPrediction(),
                                               store()->identificationNotice(), store()->gate());
    if (text == text_) return;
    text_ = text;
    Q_EMIT changed();
}

}  // namespace ornivo::app
