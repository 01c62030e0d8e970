#include <utility>

#include "app/AppStore.h"

namespace ornivo::app {

void AppStore::fileDecisions(std::string pasted, DecisionsTaker take) {
    if (!sink_ || isFilingDecisions_) return;
    setFilingDecisions(true);
    filing_.run(
        BackgroundWork::Priority::userInitiated,
        [pasted = std::move(pasted), sink = *sink_,
         files = services_.files]() -> std::optional<ReviewDecisions::Outcome> {
            const auto decisions = ReviewDecisions::parse(pasted);
            if (decisions.empty()) return std::nullopt;
            return ReviewDecisions::apply(decisions, sink, *files);
        },
        [this, take = std::move(take)](const auto& outcome) {
            setFilingDecisions(false);
            take(outcome);
        });
}

void AppStore::setFilingDecisions(bool filing) {
    isFilingDecisions_ = filing;
    Q_EMIT isFilingDecisionsChanged();
}

}  // namespace ornivo::app
