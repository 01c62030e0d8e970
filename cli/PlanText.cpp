#include "cli/PlanText.h"

#include <algorithm>
#include <cstddef>

#include "cli/Numbers.h"

namespace ornivo::cli {

namespace {

namespace fs = std::filesystem;
using Kind = PlanStep::Kind;

std::string heading(Kind kind, std::size_t count, const fs::path& destination) {
    const std::string files = counted(count, "file", "files");
    switch (kind) {
        case Kind::copy:
            return "Would copy " + files + " into " + destination.string() + ":";
        case Kind::move:
            return "Would move " + files + " within it:";
        case Kind::trash:
            return "Would move " + files + " to the Trash once copied:";
        case Kind::write:
            return "Would write:";
        case Kind::remove:
            return "Would remove:";
    }
    return {};
}

std::string shortened(const fs::path& path, const fs::path& folder) {
    const fs::path below = path.lexically_relative(folder);
    return (below.empty() || *below.begin() == "..") ? path.string() : below.string();
}

std::string line(const PlanStep& step, const fs::path& source, const fs::path& destination) {
    switch (step.kind) {
        case Kind::copy:
            return shortened(step.from, source) + " → " + shortened(step.to, destination);
        case Kind::move:
            return shortened(step.from, destination) + " → " + shortened(step.to, destination);
        case Kind::trash:
            return shortened(step.from, source);
        case Kind::write:
            return shortened(step.to, destination);
        case Kind::remove:
            return shortened(step.from, destination);
    }
    return {};
}

}  // namespace

std::vector<std::string> planText(const Plan& plan, const fs::path& source,
                                  const fs::path& destination) {
    std::vector<std::string> lines;
    for (const Kind kind : allCases<Kind>()) {
        const auto count = std::ranges::count(plan, kind, &PlanStep::kind);
        if (count == 0) continue;
        lines.push_back(heading(kind, static_cast<std::size_t>(count), destination));
        for (const PlanStep& step : plan) {
            if (step.kind == kind) lines.push_back("  " + line(step, source, destination));
        }
    }
    return lines;
}

}  // namespace ornivo::cli
