#pragma once

#include <array>
#include <filesystem>
#include <vector>

#include "vocabulary/RawValues.h"

namespace ornivo::cli {

/// One thing that a run would do to the disk.
struct PlanStep {
    enum class Kind { copy, move, trash, write, remove };

    Kind kind = Kind::copy;
    /// What is copied, moved, trashed or removed; empty for `write`.
    std::filesystem::path from;
    /// Where it goes, or what is written; empty for `trash` and `remove`.
    std::filesystem::path to;

    bool operator==(const PlanStep&) const = default;
};

/// What a run would do, in the order in which it would.
using Plan = std::vector<PlanStep>;

}  // namespace ornivo::cli

template <>
struct ornivo::RawValues<ornivo::cli::PlanStep::Kind> {
    using Kind = ornivo::cli::PlanStep::Kind;
    static constexpr std::array table{
        ornivo::RawValue<Kind>{Kind::copy, "copy"},
        ornivo::RawValue<Kind>{Kind::move, "move"},
        ornivo::RawValue<Kind>{Kind::trash, "trash"},
        ornivo::RawValue<Kind>{Kind::write, "write"},
        ornivo::RawValue<Kind>{Kind::remove, "remove"},
    };
};
