#pragma once

#include <QtQml/qqmlregistration.h>

#include <QAbstractListModel>
#include <future>
#include <string>
#include <vector>

#include "app/presentation/NameSearch.h"

namespace ornivo::app {

/// The photographers whose names contain what was searched for, in the order of the roster.
class RosterModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The credits have one.")

    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged)
    Q_PROPERTY(int count READ count NOTIFY searchChanged)
    Q_PROPERTY(QString countShown READ countShown NOTIFY searchChanged)

public:
    /// The names outlive the model.
    explicit RosterModel(const std::vector<std::string>& names, QObject* parent = nullptr);

    QString search() const { return search_; }
    void setSearch(const QString& search);
    int count() const { return static_cast<int>(shown_.size()); }
    QString countShown() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    /// The name, for the display role.
    QVariant data(const QModelIndex& index, int role) const override;

Q_SIGNALS:
    void searchChanged();

private:
    const std::vector<std::string>& names_;
    /// Made ready in the background, so that the first letter isn't waited for.
    std::shared_future<NameSearch> index_;
    QString search_;
    std::vector<int> shown_;
};

}  // namespace ornivo::app
