#include "engine/AuditedFiles.h"

#include <system_error>
#include <utility>

#include "platform/Paths.h"

namespace ornivo {

namespace fs = std::filesystem;

std::optional<std::uintmax_t> lengthOf(const fs::path& file) {
    std::error_code failure;
    if (fs::symlink_status(file, failure).type() != fs::file_type::regular) return std::nullopt;
    const std::uintmax_t length = fs::file_size(file, failure);
    return failure ? std::nullopt : std::optional(length);
}

AuditedFiles::Account AuditedFiles::account() const {
    const std::lock_guard lock(mutex_);
    return account_;
}

void AuditedFiles::closeAccount() {
    const std::lock_guard lock(mutex_);
    account_ = {};
}

void AuditedFiles::copy(const fs::path& from, const fs::path& to, Durability durability) {
    const auto length = lengthOf(from);
    ForwardingFiles::copy(from, to, durability);
    const bool stood = length && lengthOf(to) == length;
    const std::lock_guard lock(mutex_);
    account_.copies.push_back({standardized(from), standardized(to), durability, length, stood});
}

void AuditedFiles::move(const fs::path& from, const fs::path& to) {
    ForwardingFiles::move(from, to);
    const std::lock_guard lock(mutex_);
    account_.moves.push_back({standardized(from), standardized(to)});
}

std::optional<fs::path> AuditedFiles::trash(const fs::path& path) {
    auto place = ForwardingFiles::trash(path);
    const std::lock_guard lock(mutex_);
    account_.trashed.push_back(standardized(path));
    return place;
}

}  // namespace ornivo
