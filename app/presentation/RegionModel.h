#pragma once

#include <QtQml/qqmlregistration.h>

#include <QAbstractListModel>
#include <vector>

#include "identification/RangeTable.h"

namespace ornivo::app {

/// The regions that a user can name, after the row for naming none.
class RegionModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT

public:
    enum Role { RegionID = Qt::UserRole, Label, Hint };

    /// The regions that ship with the program; none without the table.
    explicit RegionModel(QObject* parent = nullptr);
    explicit RegionModel(const std::vector<RangeTable::RegionInfo>& regions,
                         QObject* parent = nullptr);

    /// The row of a region; -1 for one that isn't in the table.
    Q_INVOKABLE int rowOf(const QString& regionID) const;
    /// The region of a row; empty for the first, which names none.
    Q_INVOKABLE QString idAt(int row) const;
    /// The first row from `from` on whose label begins with what was typed, going round at the end;
    /// -1 when there is none.
    Q_INVOKABLE int rowBeginningWith(const QString& typed, int from) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    struct Row {
        QString regionID;
        QString label;
        QString hint;
        /// The label as what is typed is compared with it.
        std::string folded;
    };

    static Row rowFor(const RangeTable::RegionInfo& region);

    std::vector<Row> rows_;
};

}  // namespace ornivo::app
