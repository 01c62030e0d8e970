#pragma once

#include <QObject>
#include <QString>
#include <optional>

#include "app/presentation/TonedText.h"
#include "vocabulary/IdentifiedSpecies.h"

namespace ornivo::app {

/// What is said of the latest identification: a name with its confidence and a badge, or else a
/// notice.
struct PredictionText {
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString confidence MEMBER confidence)
    Q_PROPERTY(QString notice MEMBER notice)
    Q_PROPERTY(TonedText badge MEMBER badge)

public:
    /// From this confidence on a name is shown, wherever the gate is and whether or not the
    /// photograph was filed under it.
    static constexpr double displayFloor = 0.4;

    QString name;
    QString confidence;
    /// Empty where there is a name.
    QString notice;
    /// Empty where there is no name.
    TonedText badge;

    bool operator==(const PredictionText&) const = default;
};

PredictionText predictionText(const std::optional<IdentifiedSpecies>& prediction,
                              const QString& notice, double gate);

/// How sure an identification is, seen from a gate.
TonedText confidenceBadge(const IdentifiedSpecies& prediction, double gate);

}  // namespace ornivo::app
