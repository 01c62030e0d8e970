#include "app/presentation/ProgressText.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "app/presentation/ScreenTexts.h"
#include "engine/SortEngine.h"

namespace ornivo::app {
namespace {

QString line(const std::string& folder, int count) {
    return QStringLiteral("• %1: %2").arg(onOneLine(shown(folder)), QString::number(count));
}

}  // namespace

ProgressText progressText(const ProgressUpdate& progress, AppMode mode, JobState jobState) {
    const bool isPaused = jobState == JobState::paused;
    const QString count =
        QStringLiteral("%1 of %2 photos processed").arg(progress.current).arg(progress.total);
    return {
        .title = mode == AppMode::find ? QStringLiteral("Searching in Progress")
                                       : QStringLiteral("Sorting in Progress"),
        .pauseLabel = isPaused ? QStringLiteral("Resume") : QStringLiteral("Pause"),
        .fraction =
            progress.total < 1 ? 0 : std::clamp(double(progress.current) / progress.total, 0., 1.),
        .count = isPaused ? QStringLiteral("Paused — ") + count : count,
        .percent = QStringLiteral("%1%").arg(percentage(progress.current, progress.total)),
        .fileName = onOneLine(shown(progress.fileName)),
    };
}

std::vector<TonedText> speciesLines(const ProgressUpdate& progress) {
    std::vector<std::pair<std::string, int>> species(progress.perSpecies.begin(),
                                                     progress.perSpecies.end());
    std::ranges::stable_sort(species, std::greater(), &std::pair<std::string, int>::second);

    std::vector<TonedText> lines;
    lines.reserve(species.size() + 1);
    for (const auto& [name, count] : species) {
        lines.push_back({line(name, count), TonedText::Tone::Accent});
    }
    if (progress.unidentified >= 1) {
        lines.push_back({line(SortEngine::uncertainFolderName, progress.unidentified),
                         TonedText::Tone::Subtext});
    }
    return lines;
}

}  // namespace ornivo::app
