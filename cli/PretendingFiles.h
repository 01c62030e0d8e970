#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>

#include "cli/Plan.h"
#include "platform/Files.h"

namespace ornivo::cli {

/// Files that are read as they are but never changed: every change is only remembered, so that
/// what is asked later gets the answer it would get had the change been made. A run over them does
/// all that it would do, and leaves the disk as it was.
///
/// What can't be known beforehand is taken to succeed: that the disk has room, and that the system
/// can put a file into its trash.
class PretendingFiles : public Files {
public:
    explicit PretendingFiles(std::shared_ptr<const Files> files);

    /// What was asked for so far.
    Plan plan() const;

    bool changesDisk() const override { return false; }
    bool exists(const std::filesystem::path& path) const override;
    bool isFolder(const std::filesystem::path& path) const override;
    std::vector<std::string> namesIn(const std::filesystem::path& folder) const override;
    std::optional<std::time_t> modificationTime(const std::filesystem::path& path) const override;
    std::string read(const std::filesystem::path& path) const override;
    void createDirectories(const std::filesystem::path& folder) override;
    void copy(const std::filesystem::path& from, const std::filesystem::path& to,
              Durability durability) override;
    void move(const std::filesystem::path& from, const std::filesystem::path& to) override;
    void remove(const std::filesystem::path& path) override;
    std::optional<std::filesystem::path> trash(const std::filesystem::path& path) override;
    void create(const std::filesystem::path& path, std::string_view bytes) override;
    void replaceContents(const std::filesystem::path& path, std::string_view bytes) override;
    std::unique_ptr<AppendingFile> openForAppending(const std::filesystem::path& path) override;
    std::unique_ptr<KeptRoom> keepRoom(const std::filesystem::path& folder,
                                       std::uint64_t bytes) override;

private:
    class PretendingAppendingFile;

    // All of these are called with the mutex held.
    bool isThere(const std::filesystem::path& path) const;
    bool leadsToFolder(const std::filesystem::path& path) const;
    std::filesystem::path realPlaceOf(const std::filesystem::path& path) const;
    void requireFile(const std::filesystem::path& path, std::string_view done) const;
    void requireWritable(const std::filesystem::path& folder, const std::filesystem::path& file,
                         std::string_view done) const;
    void add(const std::filesystem::path& path);
    void takeAway(const std::filesystem::path& path);
    void write(const std::filesystem::path& path, std::string contents);

    const std::shared_ptr<const Files> files_;
    mutable std::mutex mutex_;
    /// The names that each folder has gained.
    std::map<std::filesystem::path, std::set<std::string>> added_;
    std::set<std::filesystem::path> addedFolders_;
    std::set<std::filesystem::path> gone_;
    /// A pretended copy, and the real file that it would be a copy of.
    std::map<std::filesystem::path, std::filesystem::path> origins_;
    std::map<std::filesystem::path, std::string> contents_;
    Plan plan_;
};

}  // namespace ornivo::cli
