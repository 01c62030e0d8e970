#include "app/presentation/RunWords.h"

#include "app/presentation/ScreenTexts.h"
#include "engine/SortEngine.h"

namespace ornivo::app {

QString sortedWords(int count) {
    return QStringLiteral("✓ %1 photos sorted into bird folders").arg(count);
}

QString uncertainWords(int count) {
    return QStringLiteral("? %1 moved to %2/")
        .arg(count)
        .arg(QLatin1String(SortEngine::uncertainFolderName));
}

QString matchedWords(int count) {
    return QStringLiteral("✓ %1 photos matched and copied").arg(count);
}

QString stoppedWords(int processed, int total) {
    return QStringLiteral("Stopped at photo %1 of %2").arg(processed).arg(total);
}

QString diskFullWords(int processed, int total, const std::optional<std::filesystem::path>& sink) {
    // Joined, as the name may hold what looks like a place for an argument.
    return stoppedWords(processed, total) + QStringLiteral(" — ") +
           (sink ? shownName(*sink) : QStringLiteral("The destination")) +
           QStringLiteral(" is full");
}

}  // namespace ornivo::app
