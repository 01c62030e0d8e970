#pragma once

#include <set>
#include <string>
#include <vector>

#include "engine/AuditedFiles.h"
#include "engine/FolderSnapshot.h"
#include "engine/SortEngine.h"
#include "media/Shots.h"

namespace ornivo {

/// The laws that hold for every run, however it ends:
///
/// 1. Every file taken is accounted for: filed, left alone for a stated reason, or an error.
/// 2. What was in the destination before is unchanged, but for the files that a run keeps there:
///    the list, the page, the record, and posters that tell by a digest that they are the system's.
/// 3. A source is gone only if its copy stands, complete and flushed.
/// 4. A file under a final name is complete, and nothing else was left behind.
///
/// Made when a run starts, asked at its end. It believes the disk and the account of what was
/// done, not the run loop.
class RunLaws {
public:
#ifdef NDEBUG
    static constexpr bool areChecked = false;
#else
    static constexpr bool areChecked = true;
#endif

    /// Begins a new account. `sort` and `find` are the totals that the run starts from.
    RunLaws(AuditedFiles& files, const SortEngine::RunInput& input, const Shots::Grouping& grouping,
            const SortResult& sort, const FindResult& find);

    /// One sentence for each breach; empty when all laws hold. `lastProcessed` is the index of the
    /// last file taken, `sort` and `find` are the totals at the end.
    std::vector<std::string> violations(int lastProcessed, const SortResult& sort,
                                        const FindResult& find) const;

    /// Ends the process with a message if a law was broken.
    void assertHeld(int lastProcessed, const SortResult& sort, const FindResult& find) const;

private:
    struct Evidence;

    void judgeCounts(Evidence& evidence, int lastProcessed, const SortResult& sort,
                     const FindResult& find) const;
    void judgePartners(Evidence& evidence, int lastProcessed,
                       const std::vector<std::string>& warnings) const;
    void judgeEarlierFiles(Evidence& evidence) const;
    void judgeSources(Evidence& evidence) const;
    void judgeCopies(Evidence& evidence) const;
    void judgeNewFiles(Evidence& evidence) const;
    bool isOurs(const std::filesystem::path& file) const;
    bool isPosterNow(const std::filesystem::path& file) const;

    AuditedFiles& files_;
    const SortEngine::RunInput& input_;
    const Shots::Grouping& grouping_;
    SortResult sortBefore_;
    FindResult findBefore_;
    FolderSnapshot before_;
    /// The pictures of the review page that were there before: the system's own, which may go.
    std::set<std::filesystem::path> postersBefore_;
    std::set<std::filesystem::path> sourcesBefore_;
};

}  // namespace ornivo
