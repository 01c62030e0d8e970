#pragma once

#include <QObject>
#include <QString>
#include <vector>

#include "app/presentation/Choice.h"

namespace ornivo::app {

/// What the options say of the level from which a bird is filed under its name.
struct CallLevelText {
    Q_GADGET
    Q_PROPERTY(int level MEMBER level)
    Q_PROPERTY(QString caution MEMBER caution)
    Q_PROPERTY(bool cautionIsWarning MEMBER cautionIsWarning)
    Q_PROPERTY(QString tuning MEMBER tuning)
    Q_PROPERTY(QString match MEMBER match)
    Q_PROPERTY(QString spokenMatch MEMBER spokenMatch)

public:
    /// The place of the level among `callLevelChoices`; -1 for a gate between the levels.
    int level = -1;
    /// Empty where there is nothing to be said.
    QString caution;
    bool cautionIsWarning = false;
    QString tuning;
    QString match;
    /// The same for those who hear the screen.
    QString spokenMatch;

    bool operator==(const CallLevelText&) const = default;
};

CallLevelText callLevelText(double gate);

/// The named levels, the strictest first.
std::vector<Choice> callLevelChoices();

/// What either direction of the slider means.
QString callLevelExplanation();

/// What the user should know about the originals; empty while they are kept.
QString originalsNote(bool areTrashed);

}  // namespace ornivo::app
