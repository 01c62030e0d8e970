#include "app/presentation/PlaceLookup.h"

#include "app/presentation/PlaceAnswer.h"

namespace ornivo::app {

void PlaceLookup::setQuery(const QString& query) {
    if (query == query_) return;
    query_ = query;
    Q_EMIT queryChanged();
}

void PlaceLookup::resolve() {
    const PlaceAnswer answer = placeAnswer(query_, AppStore::gazetteer(), AppStore::rangeTable());
    note_ = answer.note;
    isResolved_ = answer.regionID.has_value();
    if (answer.regionID) store()->setAssumedRegionID(QString::fromStdString(*answer.regionID));
    Q_EMIT resolved();
}

}  // namespace ornivo::app
