#include <utility>

#include "app/AppStore.h"

namespace ornivo::app {

void AppStore::fileDecisions(std::string pasted, DecisionsTaker take) {
    if (!sink_) return;
    filing_.run(
        BackgroundWork::Priority::userInitiated,
        [pasted = std::move(pasted), sink = *sink_,
         files = services_.files]() -> std::optional<ReviewDecisions::Outcome> {
            const auto decisions = ReviewDecisions::parse(pasted);
            if (decisions.empty()) return std::nullopt;
            return ReviewDecisions::apply(decisions, sink, *files);
        },
        std::move(take));
}

}  // namespace ornivo::app
