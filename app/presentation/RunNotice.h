#pragma once

#include <QString>
#include <filesystem>
#include <optional>

#include "vocabulary/FindResult.h"
#include "vocabulary/SortResult.h"

namespace ornivo::app {

/// What a desktop notification says of a run that has ended.
struct RunNotice {
    QString title;
    QString body;

    bool operator==(const RunNotice&) const = default;
};

RunNotice noticeOf(const SortResult& result, const std::optional<std::filesystem::path>& sink);
RunNotice noticeOf(const FindResult& result, const std::optional<std::filesystem::path>& sink);

}  // namespace ornivo::app
