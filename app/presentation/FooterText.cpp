#include "app/presentation/FooterText.h"

#include "app/presentation/ScreenTexts.h"
#include "platform/GroupedNumber.h"

namespace ornivo::app {
namespace {

QString activity(AppMode mode) {
    return mode == AppMode::find ? QStringLiteral("Searching…") : QStringLiteral("Sorting…");
}

QString warningOf(const std::vector<BirdSpecies>& unrecognised) {
    if (unrecognised.size() == 1) {
        return QStringLiteral("This build cannot recognise %1 — remove it to search")
            .arg(shown(unrecognised.front().displayName()));
    }
    return QStringLiteral("%1 chosen birds are not species this build knows")
        .arg(unrecognised.size());
}

}  // namespace

QString footerStatus(const FooterState& state, const std::string& locale) {
    const bool isFind = state.appMode == AppMode::find;
    if (state.jobState != JobState::idle) {
        return QStringLiteral("%1 %2%").arg(activity(state.appMode)).arg(state.percent);
    }
    if (state.hasResult) {
        return isFind ? QStringLiteral("Search complete!") : QStringLiteral("Sort complete!");
    }
    if (isFind && state.hasSource && state.hasSink && !state.hasTargets) {
        return QStringLiteral("Choose one or more species to search for");
    }
    if (isFind && !state.unrecognised.empty()) return warningOf(state.unrecognised);
    if (state.found.value_or(0) >= 1 && state.hasSink) {
        return QStringLiteral("Ready — %1 photos").arg(shown(groupedNumber(*state.found, locale)));
    }
    return QStringLiteral("Choose both folders to continue");
}

QString primaryLabel(JobState jobState, AppMode appMode, const QString& sortLabel) {
    if (jobState != JobState::idle) return activity(appMode);
    return appMode == AppMode::find ? QStringLiteral("Find Species") : sortLabel;
}

}  // namespace ornivo::app
