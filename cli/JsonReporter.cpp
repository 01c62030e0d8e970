#include "cli/JsonReporter.h"

#include <variant>

#include "cli/EventJson.h"

namespace ornivo::cli {

JsonReporter::JsonReporter(Console& console, const RunScope& scope)
    : console_(console), scope_(scope) {
    console_.write(jsonLine(scopeJson(scope)));
}

void JsonReporter::take(const SortEngine::Event& event) {
    if (const auto* progress = std::get_if<ProgressUpdate>(&event)) {
        index_ = static_cast<std::size_t>(progress->current);
        console_.write(jsonLine(eventJson(*progress, scope_)));
    } else if (const auto* prediction = std::get_if<SortEngine::Prediction>(&event)) {
        console_.write(jsonLine(eventJson(*prediction, index_, scope_)));
    } else if (const auto* diskFull = std::get_if<SortEngine::DiskFull>(&event)) {
        console_.write(jsonLine(eventJson(*diskFull, scope_)));
    }
}

void JsonReporter::tellPlan(const Plan& plan) {
    for (const PlanStep& step : plan) console_.write(jsonLine(stepJson(step)));
}

void JsonReporter::tellTotals(const RunEnd& end) {
    std::visit([this](const auto& finished) { console_.write(jsonLine(eventJson(finished))); },
               end);
}

}  // namespace ornivo::cli
