#pragma once

#include <QObject>
#include <QString>

#include "engine/PausedRun.h"
#include "vocabulary/SortOptions.h"

namespace ornivo::app {

/// What the card of a run that can be gone on with says.
struct PausedRunText {
    Q_GADGET
    Q_PROPERTY(QString summary MEMBER summary)
    Q_PROPERTY(QString explanation MEMBER explanation)
    Q_PROPERTY(QString from MEMBER from)
    Q_PROPERTY(QString to MEMBER to)
    Q_PROPERTY(QString calls MEMBER calls)
    Q_PROPERTY(QString doneSoFar MEMBER doneSoFar)
    Q_PROPERTY(QString mismatch MEMBER mismatch)

public:
    QString summary;
    QString explanation;
    QString from;
    QString to;
    QString calls;
    QString doneSoFar;
    /// Empty while the present options are those of the run.
    QString mismatch;

    bool operator==(const PausedRunText&) const = default;
};

/// `gate` and `options` are those that stand now.
PausedRunText pausedRunText(const PausedRun& run, double gate, const SortOptions& options);

/// The names of its files, as far as anyone would read on.
QString sourceNames(const PausedRun& run);

bool settingsMatchNow(const PausedRun& run, double gate, const SortOptions& options);

}  // namespace ornivo::app
