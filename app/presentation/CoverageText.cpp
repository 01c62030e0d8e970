#include "app/presentation/CoverageText.h"

#include "platform/Text.h"

namespace ornivo::app {

QString coverageLine(std::size_t matches, int count) {
    if (matches == 0) {
        return QStringLiteral("Not among the %1 species this version knows.").arg(count);
    }
    if (matches == 1) return QStringLiteral("1 match");
    return QStringLiteral("%1 matches").arg(matches);
}

Mark coverageMark(std::size_t matches) {
    return matches == 0 ? Mark{QStringLiteral("xmark-circle"), TonedText::Tone::Warn}
                        : Mark{QStringLiteral("checkmark-circle"), TonedText::Tone::Accent};
}

QString coverageExtent(int count) {
    return QStringLiteral("%1 species, identified on your Mac.").arg(count);
}

bool isEnoughToLookUp(const QString& typed) {
    return characters(typed.trimmed().toStdString()).size() >= 2;
}

}  // namespace ornivo::app
