#include "cli/RunFollower.h"

#include <memory>
#include <optional>
#include <utility>
#include <variant>

#include "cli/Interrupt.h"

namespace ornivo::cli {

namespace {

constexpr int tickMilliseconds = 100;

}  // namespace

RunEnd followRun(SortEngine& engine, SortEngine::RunInput input, RunReporter& reporter) {
    const auto wakeup = std::make_shared<const Wakeup>();
    const Interrupt interrupt(wakeup);
    bool isStopping = false;
    auto events = engine.run(std::move(input));
    events.onReadable([wakeup] { wakeup->wake(); });

    std::optional<RunEnd> end;
    while (!events.isAtEnd()) {
        wakeup->wait(tickMilliseconds);
        if (interrupt.requested() && !std::exchange(isStopping, true)) {
            engine.cancel();
            reporter.stopping();
        }
        while (const auto event = events.tryNext()) {
            reporter.take(*event);
            if (const auto* sorted = std::get_if<SortEngine::SortFinished>(&*event)) end = *sorted;
            if (const auto* found = std::get_if<SortEngine::FindFinished>(&*event)) end = *found;
        }
        reporter.tick();
    }
    return end.value();
}

}  // namespace ornivo::cli
