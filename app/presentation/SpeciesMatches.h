#pragma once

#include <QAbstractListModel>
#include <vector>

#include "identification/SpeciesMatch.h"

namespace ornivo::app {

/// The species that a look-up found, the best first.
class SpeciesMatches : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    using Match = BirdClassifierLabels::SpeciesMatch;
    enum Role { CommonName = Qt::UserRole, ScientificName };

    using QAbstractListModel::QAbstractListModel;

    void show(std::vector<Match> matches);
    const std::vector<Match>& matches() const { return matches_; }
    int count() const { return static_cast<int>(matches_.size()); }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

private:
    std::vector<Match> matches_;
};

}  // namespace ornivo::app
