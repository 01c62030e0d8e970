#include "app/presentation/PausedRunText.h"

#include "app/presentation/ScreenTexts.h"
#include "engine/PausedRunWords.h"

namespace ornivo::app {
namespace {

/// More than the rows of the largest window hold. A record names every file of a run.
constexpr qsizetype readableLength = 2000;

}  // namespace

QString sourceNames(const PausedRun& run) {
    QString names;
    for (const std::string& path : run.sourcePaths) {
        if (!names.isEmpty()) names += QStringLiteral(", ");
        names += shownName(path);
        if (names.size() > readableLength) return names + QStringLiteral("…");
    }
    return names;
}

bool settingsMatchNow(const PausedRun& run, double gate, const SortOptions& options) {
    const auto& location = options.assumedLocation;
    return run.settingsMatch(gate,
                             location ? std::optional(PausedRun::textOf(*location)) : std::nullopt,
                             std::string(rawValue(options.mode)));
}

PausedRunText pausedRunText(const PausedRun& run, double gate, const SortOptions& options) {
    const QString mismatch = QStringLiteral(
        "Your current options differ from the paused run. Resuming uses the paused settings, so "
        "the folder stays consistent.");
    return {
        .summary = shown(run.summary()),
        .explanation = shown(stopExplanation(run)),
        .from = sourceNames(run),
        .to = shownName(run.destination),
        .calls = shown(callDescription(run)),
        .doneSoFar =
            QStringLiteral("%1 sorted · %2 to review").arg(run.sortedSoFar).arg(run.uncertainSoFar),
        .mismatch = settingsMatchNow(run, gate, options) ? QString() : mismatch,
    };
}

}  // namespace ornivo::app
