#include "support/RunReport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <sstream>

namespace ornivo::testing {
namespace {

class Describer {
public:
    std::string operator()(const ProgressUpdate& progress) const {
        std::ostringstream line;
        line << "progress " << progress.current << '/' << progress.total << ' ' << progress.fileName
             << " {";
        const char* separator = "";
        for (const auto& [folder, count] : progress.perSpecies) {
            line << separator << folder << ": " << count;
            separator = ", ";
        }
        line << "} " << progress.unidentified << " uncertain";
        return line.str();
    }

    std::string operator()(const SortEngine::Prediction& prediction) const {
        if (!prediction.species) return "failure " + prediction.notice.value_or("");
        std::ostringstream line;
        line << "prediction " << prediction.species->topLabel() << ' '
             << prediction.species->confidence();
        if (prediction.notice) line << " (" << *prediction.notice << ')';
        return line.str();
    }

    std::string operator()(const SortEngine::DiskFull& full) const {
        return "disk full at " + std::to_string(full.atIndex);
    }

    template <typename Result>
    std::string operator()(const SortEngine::Outcome<Result>& outcome) const {
        return "finished " + nameOf(outcome.stopReason) + ", last " +
               std::to_string(outcome.lastProcessedIndex);
    }
};

template <typename Finished>
const Finished& lastOf(const std::vector<SortEngine::Event>& events) {
    static const Finished none;
    const auto* finished = events.empty() ? nullptr : std::get_if<Finished>(&events.back());
    EXPECT_TRUE(finished) << "the run has no finished event of this mode at its end";
    return finished ? *finished : none;
}

}  // namespace

const SortEngine::SortFinished& RunReport::sortFinished() const {
    return lastOf<SortEngine::SortFinished>(events);
}

const SortEngine::FindFinished& RunReport::findFinished() const {
    return lastOf<SortEngine::FindFinished>(events);
}

std::vector<std::string> RunReport::lines() const {
    std::vector<std::string> lines;
    std::transform(events.begin(), events.end(), std::back_inserter(lines),
                   [](const auto& event) { return std::visit(Describer(), event); });
    return lines;
}

std::vector<std::string> RunReport::lines(const std::string& word) const {
    std::vector<std::string> some = lines();
    std::erase_if(some, [&](const std::string& line) { return !line.starts_with(word); });
    return some;
}

RunReport readToEnd(EventStream<SortEngine::Event> stream) {
    RunReport report;
    while (auto event = stream.next()) report.events.push_back(std::move(*event));
    return report;
}

std::string nameOf(const StopReason& reason) {
    switch (reason.kind()) {
        case StopReason::Kind::fatalError:
            return "fatalError " + reason.message();
        case StopReason::Kind::completed:
            return "completed";
        case StopReason::Kind::userCancelled:
            return "userCancelled";
        case StopReason::Kind::diskFull:
            return "diskFull";
    }
    return {};
}

}  // namespace ornivo::testing
