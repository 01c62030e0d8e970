#pragma once

#include <QAbstractListModel>
#include <vector>

#include "app/presentation/Mark.h"
#include "vocabulary/BirdSpecies.h"

namespace ornivo::app {

/// The chosen species in the order of choosing. A change moves no row that stays.
class TargetSpeciesModel : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role { SpeciesID = Qt::UserRole, CommonName, ScientificName, MarkRole };

    using QAbstractListModel::QAbstractListModel;

    void show(const std::vector<BirdSpecies>& species);
    int count() const { return static_cast<int>(rows_.size()); }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

private:
    struct Row {
        BirdSpecies species;
        Mark mark;
    };

    static Row rowOf(const BirdSpecies& species);
    void dropRowsWithout(const std::vector<BirdSpecies>& species);
    void append(const std::vector<BirdSpecies>& species);

    std::vector<Row> rows_;
};

}  // namespace ornivo::app
