#include "app/presentation/TargetSpeciesText.h"

namespace ornivo::app {

QString speciesFieldPlaceholder(int count) {
    return QStringLiteral("Name one of %1 species").arg(count);
}

Mark speciesMark(bool isKnown) {
    return isKnown ? Mark{QStringLiteral("checkmark-circle"), TonedText::Tone::Accent}
                   : Mark{QStringLiteral("warning-triangle"), TonedText::Tone::Warn};
}

}  // namespace ornivo::app
