#include "app/presentation/PlaceAnswer.h"

namespace ornivo::app {
namespace {

std::string nameOfRegion(const std::string& id, const std::optional<RangeTable>& rangeTable) {
    const auto region = rangeTable ? rangeTable->region(id) : std::nullopt;
    return region ? region->name : id;
}

}  // namespace

PlaceAnswer placeAnswer(const QString& typed, const std::optional<PlaceGazetteer>& gazetteer,
                        const std::optional<RangeTable>& rangeTable) {
    const QString text = typed.trimmed();
    if (text.isEmpty()) return {};
    const auto place = gazetteer ? gazetteer->match(text.toStdString()) : std::nullopt;
    if (!place) {
        return {
            {},
            QStringLiteral("Couldn't place “%1”. Try a state, country or major city.").arg(text)};
    }
    const std::string region = nameOfRegion(place->regionID, rangeTable);
    const QString regionName = QString::fromStdString(region);
    if (place->name == region)
        return {place->regionID, QStringLiteral("Using %1.").arg(regionName)};
    return {place->regionID,
            QStringLiteral("%1 → %2.").arg(QString::fromStdString(place->name), regionName)};
}

}  // namespace ornivo::app
