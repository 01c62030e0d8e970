#pragma once

#include <QObject>
#include <QString>
#include <vector>

#include "app/presentation/TonedText.h"
#include "vocabulary/AppMode.h"
#include "vocabulary/JobState.h"
#include "vocabulary/ProgressUpdate.h"

namespace ornivo::app {

/// What the card of a run under way says, but for the species found so far.
struct ProgressText {
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString pauseLabel MEMBER pauseLabel)
    Q_PROPERTY(double fraction MEMBER fraction)
    Q_PROPERTY(QString count MEMBER count)
    Q_PROPERTY(QString percent MEMBER percent)
    Q_PROPERTY(QString fileName MEMBER fileName)

public:
    QString title;
    /// On the button that pauses the run or has it go on.
    QString pauseLabel;
    /// How much of the bar is filled, 0 to 1.
    double fraction = 0;
    QString count;
    QString percent;
    /// Empty before the first file.
    QString fileName;

    bool operator==(const ProgressText&) const = default;
};

ProgressText progressText(const ProgressUpdate& progress, AppMode mode, JobState jobState);

/// One line for each species found so far, the most frequent first, and one for what is uncertain.
std::vector<TonedText> speciesLines(const ProgressUpdate& progress);

}  // namespace ornivo::app
