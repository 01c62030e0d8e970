#include "app/presentation/SpeciesMatches.h"

#include <utility>

namespace ornivo::app {

void SpeciesMatches::show(std::vector<Match> matches) {
    if (matches == matches_) return;
    beginResetModel();
    matches_ = std::move(matches);
    endResetModel();
    Q_EMIT countChanged();
}

int SpeciesMatches::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant SpeciesMatches::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Match& match = matches_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case CommonName:
            return QString::fromStdString(match.commonName);
        case ScientificName:
            return QString::fromStdString(match.scientificName);
        default:
            return {};
    }
}

QHash<int, QByteArray> SpeciesMatches::roleNames() const {
    return {{CommonName, "commonName"}, {ScientificName, "scientificName"}};
}

}  // namespace ornivo::app
