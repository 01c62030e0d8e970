#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/ForwardingFiles.h"

namespace ornivo {

/// Passes everything on and keeps an account of what was copied, moved and trashed, against which
/// the laws of a run are checked at its end.
class AuditedFiles : public ForwardingFiles {
public:
    /// What was done, in its order within each list, by standardised paths. Failed attempts are
    /// not in it.
    struct Account {
        struct Copy {
            std::filesystem::path from;
            std::filesystem::path to;
            Durability durability;
            /// The source's length; absent when it couldn't be told.
            std::optional<std::uintmax_t> length;
            /// Whether a file of that length had the final name as soon as the copy was made.
            bool stood;
        };
        struct Move {
            std::filesystem::path from;
            std::filesystem::path to;
        };

        std::vector<Copy> copies;
        std::vector<Move> moves;
        std::vector<std::filesystem::path> trashed;
    };

    using ForwardingFiles::ForwardingFiles;

    /// What was done since the account was last closed.
    Account account() const;

    /// Begins a new account.
    void closeAccount();

    void copy(const std::filesystem::path& from, const std::filesystem::path& to,
              Durability durability) override;
    void move(const std::filesystem::path& from, const std::filesystem::path& to) override;
    std::optional<std::filesystem::path> trash(const std::filesystem::path& path) override;

private:
    mutable std::mutex mutex_;
    Account account_;
};

/// The length of an ordinary file in bytes; absent for anything else.
std::optional<std::uintmax_t> lengthOf(const std::filesystem::path& file);

}  // namespace ornivo
