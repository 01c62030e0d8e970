#include "app/presentation/SpeciesSearch.h"

#include "app/presentation/TargetSpeciesText.h"
#include "identification/BirdClassifierLabels.h"

namespace ornivo::app {
namespace {

constexpr int suggestionLimit = 60;

}  // namespace

void SpeciesSearch::follow(AppStore& store) {
    connect(&store, &AppStore::speciesQueryChanged, this, &SpeciesSearch::lookUp);
    lookUp();
}

void SpeciesSearch::lookUp() {
    const QString query = store()->speciesQuery();
    canSetTarget_ = !query.trimmed().isEmpty();
    suggestions_.show(BirdClassifierLabels::search(query.toStdString(), suggestionLimit));
    Q_EMIT changed();
}

QString SpeciesSearch::placeholder() const {
    return speciesFieldPlaceholder(BirdClassifierLabels::speciesCount());
}

void SpeciesSearch::choose(int row) {
    if (row < 0 || row >= suggestions_.count()) return;
    // A copy, as the suggestions go with the query.
    const SpeciesMatches::Match match = suggestions_.matches()[static_cast<std::size_t>(row)];
    store()->addSpecies(QString::fromStdString(match.commonName),
                        QString::fromStdString(match.scientificName));
    store()->setSpeciesQuery({});
}

}  // namespace ornivo::app
