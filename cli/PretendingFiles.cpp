#include "cli/PretendingFiles.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/FileErrors.h"

namespace ornivo::cli {

namespace {

namespace fs = std::filesystem;
using Kind = PlanStep::Kind;

}  // namespace

/// Must not outlive the files that it came from.
class PretendingFiles::PretendingAppendingFile : public AppendingFile {
public:
    PretendingAppendingFile(PretendingFiles& files, fs::path path)
        : files_(files), path_(std::move(path)) {}

    void write(std::string_view bytes) override {
        const std::lock_guard lock(files_.mutex_);
        files_.contents_[path_] += bytes;
    }

private:
    PretendingFiles& files_;
    fs::path path_;
};

PretendingFiles::PretendingFiles(std::shared_ptr<const Files> files) : files_(std::move(files)) {}

Plan PretendingFiles::plan() const {
    const std::lock_guard lock(mutex_);
    return plan_;
}

bool PretendingFiles::exists(const fs::path& path) const {
    const std::lock_guard lock(mutex_);
    return isThere(path);
}

bool PretendingFiles::isFolder(const fs::path& path) const {
    const std::lock_guard lock(mutex_);
    return addedFolders_.contains(path) || (isThere(path) && files_->isFolder(realPlaceOf(path)));
}

std::vector<std::string> PretendingFiles::namesIn(const fs::path& folder) const {
    const std::lock_guard lock(mutex_);
    if (addedFolders_.contains(folder) && !files_->exists(folder)) {
        const auto& names = added_.at(folder);
        return {names.begin(), names.end()};
    }
    auto names = files_->namesIn(folder);
    std::erase_if(names, [&](const auto& name) { return gone_.contains(folder / name); });
    const auto added = added_.find(folder);
    if (added == added_.end()) return names;
    names.insert(names.end(), added->second.begin(), added->second.end());
    std::ranges::sort(names);
    return names;
}

std::optional<std::time_t> PretendingFiles::modificationTime(const fs::path& path) const {
    const std::lock_guard lock(mutex_);
    if (!isThere(path)) return std::nullopt;
    return files_->modificationTime(realPlaceOf(path));
}

std::string PretendingFiles::read(const fs::path& path) const {
    const std::lock_guard lock(mutex_);
    requireFile(path, "read");
    const auto written = contents_.find(path);
    return written == contents_.end() ? files_->read(realPlaceOf(path)) : written->second;
}

void PretendingFiles::createDirectories(const fs::path& folder) {
    const std::lock_guard lock(mutex_);
    std::vector<fs::path> missing;
    fs::path level = folder;
    for (; !isThere(level) && level.has_relative_path(); level = level.parent_path()) {
        missing.push_back(level);
    }
    if (!leadsToFolder(level)) {
        throw folderError(folder, "made", missing.empty() ? EEXIST : ENOTDIR);
    }
    if (missing.empty()) return;
    if (!addedFolders_.contains(level) && ::access(level.c_str(), W_OK | X_OK) != 0) {
        throw folderError(missing.back(), "made", errno);
    }
    for (auto made = missing.rbegin(); made != missing.rend(); ++made) {
        add(*made);
        addedFolders_.insert(*made);
        added_[*made];
    }
}

void PretendingFiles::copy(const fs::path& from, const fs::path& to, Durability) {
    const std::lock_guard lock(mutex_);
    requireFile(from, "copied");
    if (isThere(to)) throw fileError(from, "copied", EEXIST);
    requireWritable(to.parent_path(), from, "copied");
    add(to);
    origins_[to] = realPlaceOf(from);
    plan_.push_back({Kind::copy, from, to});
}

void PretendingFiles::move(const fs::path& from, const fs::path& to) {
    const std::lock_guard lock(mutex_);
    requireFile(from, "moved");
    if (isThere(to)) throw fileError(from, "moved", EEXIST);
    requireWritable(to.parent_path(), from, "moved");
    const fs::path origin = realPlaceOf(from);
    takeAway(from);
    add(to);
    origins_[to] = origin;

    const auto arrived = std::ranges::find(plan_, from, &PlanStep::to);
    if (arrived == plan_.end()) {
        plan_.push_back({Kind::move, from, to});
    } else {
        arrived->to = to;
    }
}

void PretendingFiles::remove(const fs::path& path) {
    const std::lock_guard lock(mutex_);
    requireFile(path, "removed");
    takeAway(path);
    plan_.push_back({Kind::remove, path, {}});
}

std::optional<fs::path> PretendingFiles::trash(const fs::path& path) {
    const std::lock_guard lock(mutex_);
    requireFile(path, "moved to the Trash");
    takeAway(path);
    plan_.push_back({Kind::trash, path, {}});
    return std::nullopt;
}

void PretendingFiles::create(const fs::path& path, std::string_view bytes) {
    const std::lock_guard lock(mutex_);
    if (isThere(path)) throw fileError(path, "written", EEXIST);
    requireWritable(path.parent_path(), path, "written");
    write(path, std::string(bytes));
}

void PretendingFiles::replaceContents(const fs::path& path, std::string_view bytes) {
    const std::lock_guard lock(mutex_);
    requireWritable(path.parent_path(), path, "written");
    write(path, std::string(bytes));
}

std::unique_ptr<AppendingFile> PretendingFiles::openForAppending(const fs::path& path) {
    const std::lock_guard lock(mutex_);
    requireWritable(path.parent_path(), path, "written");
    const bool isNew = !isThere(path);
    if (!contents_.contains(path)) write(path, isNew ? "" : files_->read(realPlaceOf(path)));
    return std::make_unique<PretendingAppendingFile>(*this, path);
}

std::unique_ptr<KeptRoom> PretendingFiles::keepRoom(const fs::path&, std::uint64_t) {
    return nullptr;
}

bool PretendingFiles::isThere(const fs::path& path) const {
    const auto siblings = added_.find(path.parent_path());
    if (siblings != added_.end() && siblings->second.contains(path.filename())) return true;
    return !gone_.contains(path) && files_->exists(path);
}

bool PretendingFiles::leadsToFolder(const fs::path& path) const {
    std::error_code failure;
    return addedFolders_.contains(path) ||
           (!origins_.contains(path) && fs::is_directory(path, failure));
}

fs::path PretendingFiles::realPlaceOf(const fs::path& path) const {
    const auto origin = origins_.find(path);
    return origin == origins_.end() ? path : origin->second;
}

void PretendingFiles::requireFile(const fs::path& path, std::string_view done) const {
    if (!isThere(path)) throw fileError(path, done, ENOENT);
    const bool isReal = !contents_.contains(path);
    if (isReal && ::access(realPlaceOf(path).c_str(), R_OK) != 0) {
        throw fileError(path, done, errno);
    }
}

void PretendingFiles::requireWritable(const fs::path& folder, const fs::path& file,
                                      std::string_view done) const {
    if (!leadsToFolder(folder)) throw fileError(file, done, ENOENT);
    if (addedFolders_.contains(folder)) return;
    if (::access(folder.c_str(), W_OK | X_OK) != 0) throw fileError(file, done, errno);
}

void PretendingFiles::add(const fs::path& path) {
    added_[path.parent_path()].insert(path.filename());
}

void PretendingFiles::takeAway(const fs::path& path) {
    const auto siblings = added_.find(path.parent_path());
    const bool wasAdded = siblings != added_.end() && siblings->second.erase(path.filename()) > 0;
    if (!wasAdded) gone_.insert(path);
    origins_.erase(path);
    contents_.erase(path);
}

void PretendingFiles::write(const fs::path& path, std::string contents) {
    if (!isThere(path)) add(path);
    contents_[path] = std::move(contents);
    const PlanStep step{Kind::write, {}, path};
    if (std::ranges::find(plan_, step) == plan_.end()) plan_.push_back(step);
}

}  // namespace ornivo::cli
