#pragma once

#include <QString>
#include <optional>
#include <string>

#include "identification/PlaceGazetteer.h"
#include "identification/RangeTable.h"

namespace ornivo::app {

/// What became of a place that was typed.
struct PlaceAnswer {
    /// The region in which it lies; absent when the place wasn't found.
    std::optional<std::string> regionID;
    /// Empty when nothing was typed.
    QString note;

    bool operator==(const PlaceAnswer&) const = default;
};

PlaceAnswer placeAnswer(const QString& typed, const std::optional<PlaceGazetteer>& gazetteer,
                        const std::optional<RangeTable>& rangeTable);

}  // namespace ornivo::app
