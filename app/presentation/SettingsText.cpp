#include "app/presentation/SettingsText.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "engine/SortEngine.h"

namespace ornivo::app {
namespace {

struct Bursts {
    const char* title;
    const char* hint;
    const char* explanation;
    bool isExperimental;
};

constexpr std::array<Bursts, 3> bursts{{
    {"Off", "— file every photo on its own",
     "Photographers shoot bursts, and the frames either side of an uncertain one often show the "
     "same bird. Switching this on lets that evidence be used.",
     false},
    {"Confirm near-misses", "— measured 92% right",
     "When a frame already picked the same species as its neighbours but fell just under the "
     "confidence gate, it is filed with them. Nothing is re-identified — the burst only supplies "
     "the missing confidence. Measured against known-correct labels: 97% right on a single-bird "
     "burst, and still 92% right where a burst contains two birds of the same genus.",
     false},
    {"Also correct identifications", "— measured 53% right",
     "Also changes a frame's identification to match its neighbours. Now measured against "
     "known-correct labels: when a burst contains two birds of the SAME GENUS — which is what "
     "happens when a second bird lands — this gets 47% of those changes wrong. Roughly half of "
     "what it alters becomes the wrong species, on photographs that look correctly filed. Useful "
     "when you know a session was one bird; not for a mixed shoot.",
     true},
}};

const Bursts& wordsFor(BurstInheritance inheritance) {
    return bursts.at(static_cast<std::size_t>(inheritance));
}

}  // namespace

QString modelNote(bool isModelBundled) {
    return isModelBundled
               ? QStringLiteral("Using BirdClassifier model from the app bundle.")
               : QStringLiteral(
                     "Bundled model missing — running on Mock predictions (DEBUG only).");
}

QString reviewNote() {
    return QStringLiteral(
               "Open %1/review.html, decide what the photos are, then press Copy decisions there "
               "and Paste here.")
        .arg(QLatin1String(SortEngine::uncertainFolderName));
}

std::vector<Choice> burstChoices() {
    std::vector<Choice> choices;
    std::ranges::transform(bursts, std::back_inserter(choices), [](const Bursts& words) {
        return Choice{QString::fromUtf8(words.title), QString::fromUtf8(words.hint)};
    });
    return choices;
}

QString burstExplanation(BurstInheritance inheritance) {
    return QString::fromUtf8(wordsFor(inheritance).explanation);
}

bool burstInheritanceIsExperimental(BurstInheritance inheritance) {
    return wordsFor(inheritance).isExperimental;
}

QString regionExplanation(bool isRegionNamed, int count) {
    if (isRegionNamed) {
        return QStringLiteral(
            "Species with no record in this region are ranked lower, never ruled out — a genuine "
            "vagrant can still win if the photo is convincing.");
    }
    return QStringLiteral(
               "The classifier knows %1 species worldwide. Naming your region makes it prefer the "
               "birds actually recorded there — species from elsewhere are ranked lower, never "
               "ruled out.")
        .arg(count);
}

}  // namespace ornivo::app
