#include "engine/RunLaws.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "engine/PausedRun.h"
#include "platform/Error.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "review/PosterFolder.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

using Account = AuditedFiles::Account;

}  // namespace

/// What is looked at after a run, and what was found wrong.
struct RunLaws::Evidence {
    explicit Evidence(Account ofRun) : account(std::move(ofRun)) {
        for (const auto& copy : account.copies) copied.insert(copy.from);
        for (const auto& move : account.moves) moved.insert({move.from, move.to});
        trashed.insert(account.trashed.begin(), account.trashed.end());
    }

    const Account account;
    std::multiset<fs::path> copied;
    std::map<fs::path, fs::path> moved;
    std::set<fs::path> trashed;
    std::vector<std::string> violations;

    void report(const fs::path& file, const std::string& what) {
        violations.push_back(file.native() + " " + what);
    }

    /// Where a file lies after what was moved.
    const fs::path& whereabouts(const fs::path& file) const {
        const auto found = moved.find(file);
        return found == moved.end() ? file : found->second;
    }

    bool stands(const Account::Copy& copy) const {
        return copy.stood && lengthOf(whereabouts(copy.to)) == copy.length;
    }
};

RunLaws::RunLaws(AuditedFiles& files, const SortEngine::RunInput& input,
                 const Shots::Grouping& grouping, const SortResult& sort, const FindResult& find)
    : files_(files),
      input_(input),
      grouping_(grouping),
      sortBefore_(sort),
      findBefore_(find),
      before_(snapshotOf(input.destination)) {
    files_.closeAccount();
    for (const auto& [file, stamp] : before_) {
        if (isPosterNow(file)) postersBefore_.insert(file);
    }
    for (const fs::path& path : input.paths) {
        if (lengthOf(path)) sourcesBefore_.insert(standardized(path));
    }
}

std::vector<std::string> RunLaws::violations(int lastProcessed, const SortResult& sort,
                                             const FindResult& find) const {
    Evidence evidence(files_.account());
    judgeCounts(evidence, lastProcessed, sort, find);
    judgePartners(evidence, lastProcessed, sort.warnings);
    judgeEarlierFiles(evidence);
    judgeSources(evidence);
    judgeCopies(evidence);
    judgeNewFiles(evidence);
    return std::move(evidence.violations);
}

void RunLaws::assertHeld(int lastProcessed, const SortResult& sort, const FindResult& find) const {
    const auto broken = violations(lastProcessed, sort, find);
    for (const std::string& violation : broken) {
        std::fprintf(stderr, "A run broke a law: %s\n", violation.c_str());
    }
    if (!broken.empty()) std::abort();
}

void RunLaws::judgeCounts(Evidence& evidence, int lastProcessed, const SortResult& sort,
                          const FindResult& find) const {
    const int first = static_cast<int>(input_.startIndex);
    std::set<fs::path> leaders;
    int shots = 0;
    for (int i = first; i <= lastProcessed; ++i) {
        const auto index = static_cast<std::size_t>(i);
        if (grouping_.followers.contains(index)) continue;
        leaders.insert(standardized(input_.paths[index]));
        ++shots;
    }
    int filed = 0;
    for (const fs::path& leader : leaders) filed += static_cast<int>(evidence.copied.count(leader));

    const auto require = [&](int count, int expected, const std::string& what) {
        if (count == expected) return;
        evidence.violations.push_back(what + ": " + std::to_string(count) + " instead of " +
                                      std::to_string(expected));
    };
    require(sort.processed - sortBefore_.processed, lastProcessed - first + 1, "files processed");
    if (input_.mode == AppMode::find) {
        const int scanned = find.scanned - findBefore_.scanned;
        const int errors = find.errors - findBefore_.errors;
        require(find.matched - findBefore_.matched, filed, "shots matched");
        require(std::clamp(shots - scanned, 0, errors), shots - scanned, "shots not classified");
        return;
    }
    const int kept =
        sort.sorted - sortBefore_.sorted + sort.unidentified - sortBefore_.unidentified;
    require(kept, filed, "shots filed");
    require(sort.errors - sortBefore_.errors, shots - filed, "shots not filed");
}

void RunLaws::judgePartners(Evidence& evidence, int lastProcessed,
                            const std::vector<std::string>& warnings) const {
    for (const auto& [leader, partners] : grouping_.partners) {
        const bool isTaken =
            leader >= input_.startIndex && static_cast<int>(leader) <= lastProcessed;
        if (!isTaken || !evidence.copied.contains(standardized(input_.paths[leader]))) continue;
        for (const std::size_t index : partners) {
            const fs::path partner = standardized(input_.paths[index]);
            const bool isMentioned =
                std::any_of(warnings.begin(), warnings.end(), [&](const std::string& warning) {
                    return warning.find(wellFormed(lastPathComponent(partner))) !=
                           std::string::npos;
                });
            if (evidence.copied.contains(partner) || isMentioned) continue;
            evidence.report(partner, "was not filed with its shot, without a word");
        }
    }
}

void RunLaws::judgeEarlierFiles(Evidence& evidence) const {
    const fs::path list = standardized(input_.destination) / SortEngine::uncertainFolderName /
                          SortEngine::reviewCSVName;
    for (const auto& [file, stamp] : before_) {
        if (file == list && lengthOf(file) < stamp.length) {
            evidence.report(file, "was not only added to");
        }
        if (isOurs(file) || evidence.trashed.contains(file)) continue;
        const bool mayGo = postersBefore_.contains(file);
        if (mayGo && (!lengthOf(file) || isPosterNow(file))) continue;
        if (stampOf(evidence.whereabouts(file)) != stamp) {
            evidence.report(file, "was there before, and has changed or gone");
        }
    }
}

void RunLaws::judgeSources(Evidence& evidence) const {
    std::set<fs::path> safe;
    for (const auto& copy : evidence.account.copies) {
        if (copy.durability == Durability::flushed && evidence.stands(copy)) safe.insert(copy.from);
    }
    for (const fs::path& source : evidence.trashed) {
        if (!safe.contains(source)) evidence.report(source, "was trashed without a safe copy");
    }
    for (const fs::path& source : sourcesBefore_) {
        if (evidence.trashed.contains(source) || lengthOf(source)) continue;
        evidence.report(source, "has gone, and not to the trash");
    }
}

void RunLaws::judgeCopies(Evidence& evidence) const {
    for (const auto& copy : evidence.account.copies) {
        const auto now = lengthOf(evidence.whereabouts(copy.to));
        if (!copy.stood || (now && now != copy.length)) {
            evidence.report(copy.to, "is not complete");
        }
    }
}

void RunLaws::judgeNewFiles(Evidence& evidence) const {
    std::set<fs::path> placed;
    for (const auto& copy : evidence.account.copies) placed.insert(copy.to);
    for (const auto& move : evidence.account.moves) placed.insert(move.to);
    for (const auto& [file, stamp] : snapshotOf(input_.destination)) {
        if (before_.contains(file) || isOurs(file) || placed.contains(file)) continue;
        if (isPosterNow(file)) continue;
        evidence.report(file, "was left behind");
    }
}

/// A poster proves by its own contents that it is whole, and nobody else's.
bool RunLaws::isPosterNow(const fs::path& file) const {
    const fs::path folder =
        standardized(input_.destination) / SortEngine::uncertainFolderName / PosterFolder::name;
    if (file.parent_path() != folder) return false;
    try {
        return PosterFolder::isPoster(Files::system()->read(file));
    } catch (const Error&) {
        return false;
    }
}

bool RunLaws::isOurs(const fs::path& file) const {
    const fs::path uncertain = input_.destination / SortEngine::uncertainFolderName;
    const std::array ours{uncertain / SortEngine::reviewCSVName,
                          uncertain / SortEngine::reviewPageName,
                          PausedRun::manifestURL(input_.destination)};
    return std::any_of(ours.begin(), ours.end(),
                       [&](const fs::path& each) { return standardized(each) == file; });
}

}  // namespace ornivo
