#include "support/FailingFiles.h"

#include <cerrno>
#include <utility>

#include "platform/Paths.h"

namespace ornivo::testing {

namespace fs = std::filesystem;

void FailingFiles::fail(Operation operation, Condition when, Error error) {
    rules_.push_back({operation, std::move(when), std::move(error)});
}

std::vector<std::string> FailingFiles::namesIn(const fs::path& folder) const {
    attempt(Operation::namesIn, folder);
    return ForwardingFiles::namesIn(folder);
}

void FailingFiles::createDirectories(const fs::path& folder) {
    attempt(Operation::createDirectories, folder);
    ForwardingFiles::createDirectories(folder);
}

void FailingFiles::copy(const fs::path& from, const fs::path& to, Durability durability) {
    attempt(Operation::copy, from);
    ForwardingFiles::copy(from, to, durability);
}

void FailingFiles::move(const fs::path& from, const fs::path& to) {
    attempt(Operation::move, from);
    ForwardingFiles::move(from, to);
}

void FailingFiles::remove(const fs::path& path) {
    attempt(Operation::remove, path);
    ForwardingFiles::remove(path);
}

std::optional<fs::path> FailingFiles::trash(const fs::path& path) {
    attempt(Operation::trash, path);
    return ForwardingFiles::trash(path);
}

void FailingFiles::create(const fs::path& path, std::string_view bytes) {
    attempt(Operation::create, path);
    ForwardingFiles::create(path, bytes);
}

void FailingFiles::replaceContents(const fs::path& path, std::string_view bytes) {
    attempt(Operation::replace, path);
    ForwardingFiles::replaceContents(path, bytes);
}

std::unique_ptr<AppendingFile> FailingFiles::openForAppending(const fs::path& path) {
    attempt(Operation::append, path);
    return ForwardingFiles::openForAppending(path);
}

void FailingFiles::attempt(Operation operation, const fs::path& path) const {
    Attempt now{operation, path, 0};
    {
        const std::lock_guard lock(mutex_);
        now.number = ++attempts_[operation];
    }
    if (hook_) hook_(now);
    for (const Rule& rule : rules_) {
        if (rule.operation == operation && rule.when(now)) throw rule.error;
    }
}

FailingFiles::Condition nth(int number) {
    return [number](const FailingFiles::Attempt& attempt) { return attempt.number == number; };
}

FailingFiles::Condition from(int number) {
    return [number](const FailingFiles::Attempt& attempt) { return attempt.number >= number; };
}

FailingFiles::Condition named(std::string name) {
    return [name = std::move(name)](const FailingFiles::Attempt& attempt) {
        return lastPathComponent(attempt.path) == name;
    };
}

Error noSpaceLeft() {
    return Error::posix(ENOSPC, "It couldn't be written");
}

Error notPermitted() {
    return Error::posix(EACCES, "It couldn't be done");
}

}  // namespace ornivo::testing
