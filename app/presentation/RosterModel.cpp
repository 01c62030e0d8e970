#include "app/presentation/RosterModel.h"

#include <numeric>

#include "app/presentation/CreditsText.h"

namespace ornivo::app {

RosterModel::RosterModel(const std::vector<std::string>& names, QObject* parent)
    : QAbstractListModel(parent),
      names_(names),
      index_(std::async(std::launch::async, [&names] { return NameSearch(names); })),
      shown_(names.size()) {
    std::iota(shown_.begin(), shown_.end(), 0);
}

void RosterModel::setSearch(const QString& search) {
    if (search == search_) return;
    search_ = search;
    beginResetModel();
    shown_ = index_.get().search(search);
    endResetModel();
    Q_EMIT searchChanged();
}

QString RosterModel::countShown() const {
    return app::countShown(count());
}

int RosterModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant RosterModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const int place = shown_[static_cast<std::size_t>(index.row())];
    return QString::fromStdString(names_[static_cast<std::size_t>(place)]);
}

}  // namespace ornivo::app
