#include "app/presentation/DecisionFiler.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>

namespace ornivo::app {

void DecisionFiler::fileClipboard() {
    if (!store()->sink() || store()->isFilingDecisions()) return;
    note_.clear();
    Q_EMIT changed();
    // The sheet may be closed before all is filed; the store files on.
    store()->fileDecisions(QGuiApplication::clipboard()->text().toStdString(),
                           [self = QPointer(this)](const auto& outcome) {
                               if (self) self->take(outcome);
                           });
}

void DecisionFiler::take(const std::optional<ReviewDecisions::Outcome>& outcome) {
    isSuccess_ = outcome && outcome->moved >= 1;
    note_ = outcome ? QString::fromStdString(ReviewDecisions::statusText(*outcome))
                    : QString::fromUtf8(ReviewDecisions::nothingToFile);
    Q_EMIT changed();
}

}  // namespace ornivo::app
