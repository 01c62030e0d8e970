#include "app/presentation/RunNotice.h"

#include "platform/Paths.h"

namespace ornivo::app {
namespace {

QString nameOf(const std::optional<std::filesystem::path>& sink) {
    return sink ? QString::fromStdString(lastPathComponent(*sink))
                : QStringLiteral("The destination");
}

/// `kind` is "Sort" or "Search", `found` what the run found.
template <typename Result>
RunNotice notice(const QString& kind, const QString& found, const Result& result,
                 const std::optional<std::filesystem::path>& sink) {
    if (!result.stopped) return {kind + QStringLiteral(" complete!"), found};
    const QString reached =
        QStringLiteral("Stopped at photo %1 of %2").arg(result.processed).arg(result.total);
    const bool isFull = result.stopReason.kind() == StopReason::Kind::diskFull;
    return {kind + QStringLiteral(" stopped"),
            isFull ? QStringLiteral("%1 — %2 is full").arg(reached, nameOf(sink)) : reached};
}

}  // namespace

RunNotice noticeOf(const SortResult& result, const std::optional<std::filesystem::path>& sink) {
    const QString found = QStringLiteral(
                              "✓ %1 photos sorted into bird folders\n"
                              "? %2 moved to _Uncertain/")
                              .arg(result.sorted)
                              .arg(result.unidentified);
    return notice(QStringLiteral("Sort"), found, result, sink);
}

RunNotice noticeOf(const FindResult& result, const std::optional<std::filesystem::path>& sink) {
    const QString found = QStringLiteral("✓ %1 photos matched and copied").arg(result.matched);
    return notice(QStringLiteral("Search"), found, result, sink);
}

}  // namespace ornivo::app
