#pragma once

#include <QAbstractListModel>
#include <vector>

#include "app/presentation/TonedText.h"

namespace ornivo::app {

/// Lines that change often. A list in QML keeps its elements for the lines that stay, so that a
/// run may tell of every file without the window falling behind.
class TonedLines : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role { textRole = Qt::UserRole, toneRole };

    using QAbstractListModel::QAbstractListModel;

    int count() const { return static_cast<int>(lines_.size()); }
    void setLines(std::vector<TonedText> lines);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

private:
    void resize(std::size_t size);

    std::vector<TonedText> lines_;
};

}  // namespace ornivo::app
