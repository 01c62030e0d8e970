#include "app/presentation/FoldersText.h"

#include "app/presentation/ScreenTexts.h"
#include "platform/GroupedNumber.h"

namespace ornivo::app {
namespace {

using Tone = TonedText::Tone;

Tone toneOf(SpaceEstimate::Verdict verdict) {
    switch (verdict) {
        case SpaceEstimate::Verdict::clones:
            return Tone::Accent;
        case SpaceEstimate::Verdict::fits:
            return Tone::Subtext;
        case SpaceEstimate::Verdict::tight:
            return Tone::Warn;
        case SpaceEstimate::Verdict::doesNotFit:
            return Tone::Error;
    }
    return Tone::Subtext;
}

}  // namespace

TonedText sourceStatus(const SourceState& state, const std::string& locale) {
    if (state.isScanning) return {QStringLiteral("Scanning…"), Tone::Subtext};
    if (!state.refusal.isEmpty()) return {state.refusal, Tone::Warn};
    if (!state.found) return {};
    if (*state.found == 0) return {QStringLiteral("No photos found"), Tone::Warn};
    return {shown(groupedNumber(*state.found, locale)) +
                QStringLiteral(" photos found (including subfolders)"),
            Tone::Accent};
}

TonedText spaceAdvice(const std::optional<SpaceEstimate>& estimate, const std::string& locale) {
    if (!estimate) return {};
    return {shown(estimate->advice(locale)), toneOf(estimate->verdict)};
}

TonedText folderLine(const std::optional<std::filesystem::path>& folder, const QString& hint) {
    if (!folder) return {hint, Tone::Subtext};
    return {onOneLine(shown(folder->string())), Tone::Plain};
}

QString sourceHint() {
    return QStringLiteral("Where your unsorted photos live");
}

QString sinkHint() {
    return QStringLiteral("Where sorted bird folders will be created");
}

}  // namespace ornivo::app
