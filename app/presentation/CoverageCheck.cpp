#include "app/presentation/CoverageCheck.h"

#include "identification/BirdClassifierLabels.h"

namespace ornivo::app {
namespace {

constexpr int matchLimit = 40;

}  // namespace

void CoverageCheck::setQuery(const QString& query) {
    if (query == query_) return;
    query_ = query;
    matches_.show(isEnoughToLookUp(query)
                      ? BirdClassifierLabels::search(query.toStdString(), matchLimit)
                      : std::vector<SpeciesMatches::Match>());
    Q_EMIT queryChanged();
}

QString CoverageCheck::extent() const {
    return coverageExtent(BirdClassifierLabels::speciesCount());
}

QString CoverageCheck::line() const {
    if (!isEnoughToLookUp(query_)) return {};
    return coverageLine(matches_.matches().size(), BirdClassifierLabels::speciesCount());
}

}  // namespace ornivo::app
