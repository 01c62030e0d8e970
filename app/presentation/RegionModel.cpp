#include "app/presentation/RegionModel.h"

#include <QStringList>
#include <algorithm>
#include <iterator>

#include "app/AppStore.h"
#include "platform/Text.h"

namespace ornivo::app {
namespace {

const std::vector<RangeTable::RegionInfo>& bundledRegions() {
    static const std::vector<RangeTable::RegionInfo> none;
    return AppStore::rangeTable() ? AppStore::rangeTable()->regions() : none;
}

}  // namespace

RegionModel::RegionModel(QObject* parent) : RegionModel(bundledRegions(), parent) {}

RegionModel::RegionModel(const std::vector<RangeTable::RegionInfo>& regions, QObject* parent)
    : QAbstractListModel(parent) {
    rows_.push_back({{}, QStringLiteral("Use each photo's own location"), {}, {}});
    std::ranges::transform(regions, std::back_inserter(rows_), rowFor);
}

RegionModel::Row RegionModel::rowFor(const RangeTable::RegionInfo& region) {
    QStringList countries;
    for (const std::string& country : region.countries) {
        countries.append(QString::fromStdString(country));
    }
    return {QString::fromStdString(region.id), QString::fromStdString(region.name),
            countries.join(QStringLiteral(", ")), foldCaseAndDiacritics(region.name)};
}

int RegionModel::rowOf(const QString& regionID) const {
    const auto found = std::ranges::find(rows_, regionID, &Row::regionID);
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

QString RegionModel::idAt(int row) const {
    return rows_.at(static_cast<std::size_t>(row)).regionID;
}

int RegionModel::rowBeginningWith(const QString& typed, int from) const {
    const std::string folded = foldCaseAndDiacritics(typed.toStdString());
    const int count = rowCount();
    for (int step = 0; step < count; ++step) {
        const int row = (std::max(from, 0) + step) % count;
        if (rows_[static_cast<std::size_t>(row)].folded.starts_with(folded)) return row;
    }
    return -1;
}

int RegionModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant RegionModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case RegionID:
            return row.regionID;
        case Label:
            return row.label;
        case Hint:
            return row.hint;
        default:
            return {};
    }
}

QHash<int, QByteArray> RegionModel::roleNames() const {
    return {{RegionID, "regionID"}, {Label, "label"}, {Hint, "hint"}};
}

}  // namespace ornivo::app
