#include "app/presentation/TargetSpeciesModel.h"

#include <algorithm>

#include "app/presentation/TargetSpeciesText.h"
#include "identification/TargetSpecies.h"

namespace ornivo::app {

void TargetSpeciesModel::show(const std::vector<BirdSpecies>& species) {
    dropRowsWithout(species);
    append(species);
    Q_EMIT countChanged();
}

void TargetSpeciesModel::dropRowsWithout(const std::vector<BirdSpecies>& species) {
    for (int row = count() - 1; row >= 0; --row) {
        const auto place = rows_.begin() + row;
        if (std::ranges::find(species, place->species) != species.end()) continue;
        beginRemoveRows({}, row, row);
        rows_.erase(place);
        endRemoveRows();
    }
}

/// Species are only ever added at the end, so the rows that stayed are the first of the list.
void TargetSpeciesModel::append(const std::vector<BirdSpecies>& species) {
    if (species.size() <= rows_.size()) return;
    beginInsertRows({}, count(), static_cast<int>(species.size()) - 1);
    std::transform(species.begin() + count(), species.end(), std::back_inserter(rows_), rowOf);
    endInsertRows();
}

TargetSpeciesModel::Row TargetSpeciesModel::rowOf(const BirdSpecies& species) {
    return {species, speciesMark(TargetSpecies::isKnown(species))};
}

int TargetSpeciesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant TargetSpeciesModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& [species, mark] = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case SpeciesID:
            return QString::fromStdString(species.id());
        case CommonName:
            return QString::fromStdString(species.commonName);
        case ScientificName:
            return QString::fromStdString(species.scientificName);
        case MarkRole:
            return QVariant::fromValue(mark);
        default:
            return {};
    }
}

QHash<int, QByteArray> TargetSpeciesModel::roleNames() const {
    return {{SpeciesID, "speciesID"},
            {CommonName, "commonName"},
            {ScientificName, "scientificName"},
            {MarkRole, "mark"}};
}

}  // namespace ornivo::app
