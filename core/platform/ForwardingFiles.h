#pragma once

#include <memory>
#include <utility>

#include "platform/Files.h"

namespace ornivo {

/// Passes every operation on to another `Files`: the ground on which decorators stand, each of
/// which overrides what it wants to see or change.
class ForwardingFiles : public Files {
public:
    explicit ForwardingFiles(std::shared_ptr<Files> files) : files_(std::move(files)) {}

    bool changesDisk() const override { return files_->changesDisk(); }

    bool exists(const std::filesystem::path& path) const override { return files_->exists(path); }

    bool isFolder(const std::filesystem::path& path) const override {
        return files_->isFolder(path);
    }

    std::vector<std::string> namesIn(const std::filesystem::path& folder) const override {
        return files_->namesIn(folder);
    }

    std::optional<std::time_t> modificationTime(const std::filesystem::path& path) const override {
        return files_->modificationTime(path);
    }

    std::string read(const std::filesystem::path& path) const override {
        return files_->read(path);
    }

    void createDirectories(const std::filesystem::path& folder) override {
        files_->createDirectories(folder);
    }

    void copy(const std::filesystem::path& from, const std::filesystem::path& to,
              Durability durability) override {
        files_->copy(from, to, durability);
    }

    void move(const std::filesystem::path& from, const std::filesystem::path& to) override {
        files_->move(from, to);
    }

    void remove(const std::filesystem::path& path) override { files_->remove(path); }

    std::optional<std::filesystem::path> trash(const std::filesystem::path& path) override {
        return files_->trash(path);
    }

    void create(const std::filesystem::path& path, std::string_view bytes) override {
        files_->create(path, bytes);
    }

    void replaceContents(const std::filesystem::path& path, std::string_view bytes) override {
        files_->replaceContents(path, bytes);
    }

    std::unique_ptr<AppendingFile> openForAppending(const std::filesystem::path& path) override {
        return files_->openForAppending(path);
    }

    std::unique_ptr<KeptRoom> keepRoom(const std::filesystem::path& folder,
                                       std::uint64_t bytes) override {
        return files_->keepRoom(folder, bytes);
    }

private:
    std::shared_ptr<Files> files_;
};

}  // namespace ornivo
