#pragma once

#include <string>
#include <vector>

#include "engine/SortEngine.h"

namespace ornivo::testing {

/// All events of a run, read to the end of the stream.
struct RunReport {
    std::vector<SortEngine::Event> events;

    /// The last event; a run of the other mode, or one without an end, fails the test.
    const SortEngine::SortFinished& sortFinished() const;
    const SortEngine::FindFinished& findFinished() const;
    const SortResult& sort() const { return sortFinished().result; }
    const FindResult& find() const { return findFinished().result; }

    /// One line for each event, without the time that the run took:
    ///
    ///     progress 0/2 a.jpg {Bald Eagle: 1} 0 uncertain
    ///     prediction Haliaeetus_leucocephalus 0.9
    ///     prediction Haliaeetus_leucocephalus 0.4 (Low confidence — review _Uncertain/)
    ///     failure The file couldn't be read.
    ///     disk full at 1
    ///     finished completed, last 1
    std::vector<std::string> lines() const;

    /// The lines that begin with a word.
    std::vector<std::string> lines(const std::string& word) const;
};

/// Reads a stream to its end.
RunReport readToEnd(EventStream<SortEngine::Event> stream);

/// A reason by its name, as in "diskFull".
std::string nameOf(const StopReason& reason);

}  // namespace ornivo::testing
