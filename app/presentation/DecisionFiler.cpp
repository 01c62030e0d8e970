#include "app/presentation/DecisionFiler.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>

namespace ornivo::app {

void DecisionFiler::fileClipboard() {
    if (isFiling_ || !store()->sink()) return;
    isFiling_ = true;
    note_.clear();
    Q_EMIT changed();
    // The sheet may be closed before all is filed; the store files on.
    store()->fileDecisions(QGuiApplication::clipboard()->text().toStdString(),
                           [self = QPointer(this)](const auto& outcome) {
                               if (self) self->take(outcome);
                           });
}

void DecisionFiler::take(const std::optional<ReviewDecisions::Outcome>& outcome) {
    isFiling_ = false;
    isSuccess_ = outcome && outcome->moved >= 1;
    note_ = outcome ? QString::fromStdString(ReviewDecisions::statusText(*outcome))
                    : QString::fromUtf8(ReviewDecisions::nothingToFile);
    Q_EMIT changed();
}

}  // namespace ornivo::app
