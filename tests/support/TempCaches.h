#pragma once

#include <stdlib.h>

#include <optional>
#include <string>

#include "support/TempFolder.h"

namespace ornivo::testing {

/// An empty folder that stands in for the user's caches directory during its scope.
class TempCaches {
public:
    TempCaches() {
        if (const char* const value = getenv(variable)) before_ = value;
        setenv(variable, folder_.path().c_str(), 1);
    }
    ~TempCaches() {
        if (before_) {
            setenv(variable, before_->c_str(), 1);
        } else {
            unsetenv(variable);
        }
    }
    TempCaches(const TempCaches&) = delete;
    TempCaches& operator=(const TempCaches&) = delete;

    const std::filesystem::path& path() const { return folder_.path(); }
    std::filesystem::path operator/(const std::filesystem::path& name) const {
        return folder_ / name;
    }

private:
    static constexpr const char* variable = "XDG_CACHE_HOME";

    TempFolder folder_;
    std::optional<std::string> before_;
};

}  // namespace ornivo::testing
