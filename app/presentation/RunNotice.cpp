#include "app/presentation/RunNotice.h"

#include "app/presentation/RunWords.h"

namespace ornivo::app {
namespace {

/// `kind` is "Sort" or "Search", `found` what the run found.
template <typename Result>
RunNotice notice(const QString& kind, const QString& found, const Result& result,
                 const std::optional<std::filesystem::path>& sink) {
    if (!result.stopped) return {kind + QStringLiteral(" complete!"), found};
    const bool isFull = result.stopReason.kind() == StopReason::Kind::diskFull;
    return {kind + QStringLiteral(" stopped"),
            isFull ? diskFullWords(result.processed, result.total, sink)
                   : stoppedWords(result.processed, result.total)};
}

}  // namespace

RunNotice noticeOf(const SortResult& result, const std::optional<std::filesystem::path>& sink) {
    const QString found =
        sortedWords(result.sorted) + QLatin1Char('\n') + uncertainWords(result.unidentified);
    return notice(QStringLiteral("Sort"), found, result, sink);
}

RunNotice noticeOf(const FindResult& result, const std::optional<std::filesystem::path>& sink) {
    return notice(QStringLiteral("Search"), matchedWords(result.matched), result, sink);
}

}  // namespace ornivo::app
