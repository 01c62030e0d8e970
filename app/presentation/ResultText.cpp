#include "app/presentation/ResultText.h"

#include <algorithm>

#include "app/presentation/RunWords.h"
#include "app/presentation/ScreenTexts.h"

namespace ornivo::app {
namespace {

using Tone = TonedText::Tone;
using Lines = std::vector<TonedText>;

constexpr std::size_t warningsShown = 3;

/// A line of `words` with a number in it.
TonedText line(const QString& words, int number, Tone tone) {
    return {words.arg(number), tone};
}

/// The lines that both kinds of run share, where they apply.
template <typename Result>
void appendTroubles(Lines& lines, const Result& result) {
    if (result.lowConfidence >= 1) {
        lines.push_back(
            line(QStringLiteral("%1 photos had no confirmed call — accept probable calls?"),
                 result.lowConfidence, Tone::Warn));
    }
    if (result.errors >= 1) {
        lines.push_back(line(QStringLiteral("✗ %1 errors"), result.errors, Tone::Error));
    }
}

template <typename Result>
Lines diskFullLines(const Result& result, const std::optional<std::filesystem::path>& sink) {
    return {{diskFullWords(result.processed, result.total, sink), Tone::Error},
            {QStringLiteral(
                 "Free some space and resume — the rest are untouched in your source folder"),
             Tone::Subtext}};
}

template <typename Result>
bool isStoppedByFullDisk(const Result& result) {
    return result.stopped && result.stopReason.kind() == StopReason::Kind::diskFull;
}

Lines stopLines(const SortResult& result, const std::optional<std::filesystem::path>& sink) {
    if (!result.stopped) return {};
    if (isStoppedByFullDisk(result)) return diskFullLines(result, sink);
    return {
        {QStringLiteral("Stopped at %1/%2 — results saved").arg(result.processed).arg(result.total),
         Tone::Warn}};
}

}  // namespace

std::vector<TonedText> warningRows(const std::vector<std::string>& warnings) {
    Lines rows;
    const std::size_t count = std::min(warnings.size(), warningsShown);
    for (std::size_t i = 0; i < count; ++i) rows.push_back({shown(warnings[i]), Tone::Warn});
    if (warnings.size() > warningsShown) {
        const auto unseen = static_cast<int>(warnings.size() - warningsShown);
        rows.push_back(line(QStringLiteral("+ %1 more"), unseen, Tone::Subtext));
    }
    return rows;
}

ResultText resultText(const SortResult& result, const std::optional<std::filesystem::path>& sink) {
    ResultText text;
    Lines& outcome = text.outcome;
    outcome.push_back({sortedWords(result.sorted), Tone::Accent});
    if (result.burstPromoted >= 1) {
        outcome.push_back(
            line(QStringLiteral("↳ %1 of those came from their burst, not their own confidence"),
                 result.burstPromoted, Tone::Subtext));
    }
    outcome.push_back({uncertainWords(result.unidentified), Tone::Subtext});
    appendTroubles(outcome, result);
    text.warnings = warningRows(result.warnings);
    text.ending = stopLines(result, sink);
    text.ending.push_back({QStringLiteral("%1 species · %2")
                               .arg(result.perSpecies.size())
                               .arg(timeLabel(result.elapsedSeconds)),
                           Tone::Subtext});
    return text;
}

ResultText resultText(const FindResult& result, const std::optional<std::filesystem::path>& sink) {
    ResultText text;
    text.outcome = {{matchedWords(result.matched), Tone::Accent},
                    line(QStringLiteral("~ %1 scanned, no match"), result.scanned - result.matched,
                         Tone::Subtext)};
    appendTroubles(text.outcome, result);
    text.warnings = warningRows(result.warnings);
    // A search that the user stopped has no line of its own about that.
    if (isStoppedByFullDisk(result)) text.ending = diskFullLines(result, sink);
    text.ending.push_back({timeLabel(result.elapsedSeconds), Tone::Subtext});
    return text;
}

}  // namespace ornivo::app
