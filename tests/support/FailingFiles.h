#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/Error.h"
#include "platform/ForwardingFiles.h"

namespace ornivo::testing {

/// Files that fail when a test wants them to, and otherwise pass on to real ones. Rules are made
/// while nothing is being done.
class FailingFiles : public ForwardingFiles {
public:
    enum class Operation {
        namesIn,
        createDirectories,
        copy,
        move,
        remove,
        trash,
        create,
        replace,
        append
    };

    /// One attempt at something.
    struct Attempt {
        Operation operation;
        /// What is copied, moved, and so on.
        std::filesystem::path path;
        /// Counted from 1 within the operation.
        int number;
    };
    using Condition = std::function<bool(const Attempt&)>;

    explicit FailingFiles(std::shared_ptr<Files> files = Files::system())
        : ForwardingFiles(std::move(files)) {}

    /// Raises the error, and does nothing, whenever the condition holds.
    void fail(Operation operation, Condition when, Error error);

    /// Has `hook` called before every attempt, on the thread that makes it.
    void onAttempt(std::function<void(const Attempt&)> hook) { hook_ = std::move(hook); }

    std::vector<std::string> namesIn(const std::filesystem::path& folder) const override;
    void createDirectories(const std::filesystem::path& folder) override;
    void copy(const std::filesystem::path& from, const std::filesystem::path& to,
              Durability durability) override;
    void move(const std::filesystem::path& from, const std::filesystem::path& to) override;
    void remove(const std::filesystem::path& path) override;
    std::optional<std::filesystem::path> trash(const std::filesystem::path& path) override;
    void create(const std::filesystem::path& path, std::string_view bytes) override;
    void replaceContents(const std::filesystem::path& path, std::string_view bytes) override;
    std::unique_ptr<AppendingFile> openForAppending(const std::filesystem::path& path) override;

private:
    struct Rule {
        Operation operation;
        Condition when;
        Error error;
    };

    /// Raises if a rule says so.
    void attempt(Operation operation, const std::filesystem::path& path) const;

    std::vector<Rule> rules_;
    std::function<void(const Attempt&)> hook_;
    mutable std::mutex mutex_;
    mutable std::map<Operation, int> attempts_;
};

/// Only the n-th attempt, counted from 1.
FailingFiles::Condition nth(int number);
/// The n-th attempt and all after it.
FailingFiles::Condition from(int number);
/// Every attempt on a file of this name.
FailingFiles::Condition named(std::string name);

/// Errors as the system raises them.
Error noSpaceLeft();
Error notPermitted();

}  // namespace ornivo::testing
