#include "app/presentation/OptionsText.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "identification/CallLevel.h"
#include "review/UncertainFolder.h"

namespace ornivo::app {
namespace {

constexpr auto ladder = allCases<CallLevel>();

int placeOf(CallLevel level) {
    return static_cast<int>(std::ranges::find(ladder, level) - ladder.begin());
}

}  // namespace

CallLevelText callLevelText(double gate) {
    const long hundredths = std::lround(gate * 100);
    CallLevelText text;
    text.tuning = QStringLiteral("Custom");
    text.match = QStringLiteral("needs a %1/100 match").arg(hundredths);
    text.spokenMatch = QStringLiteral("needs a match of %1 out of 100").arg(hundredths);
    const auto level = callLevelMatching(gate);
    if (!level) return text;
    text.level = placeOf(*level);
    text.caution = QString::fromStdString(caution(*level).value_or(""));
    text.cautionIsWarning = cautionIsWarning(*level);
    text.tuning = QStringLiteral("Fine tune");
    return text;
}

std::vector<Choice> callLevelChoices() {
    std::vector<Choice> choices;
    std::ranges::transform(ladder, std::back_inserter(choices), [](CallLevel level) {
        return Choice{QString::fromStdString(title(level)),
                      QStringLiteral("— ") + QString::fromStdString(blurb(level))};
    });
    return choices;
}

QString callLevelExplanation() {
    return QStringLiteral(
               "Stricter = fewer birds named, more sent to %1/ for you to review. Looser = more "
               "named, more of them wrong.")
        .arg(QLatin1String(uncertainFolderName));
}

QString originalsNote(bool areTrashed) {
    if (!areTrashed) return {};
    return QStringLiteral(
        "Originals go to your Trash once each copy is written — recoverable from there.");
}

}  // namespace ornivo::app
