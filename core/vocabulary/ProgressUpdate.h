#pragma once

#include <map>
#include <string>

namespace ornivo {

/// The state of a run as it turns to a file.
struct ProgressUpdate {
    /// Index in the list of the file now being taken, from 0.
    int current = 0;
    /// Files in the list.
    int total = 0;
    /// The file's last path component.
    std::string fileName;
    /// Running counts, as in `SortResult`.
    std::map<std::string, int> perSpecies;
    /// Running count of shots in `_Uncertain`.
    int unidentified = 0;

    bool operator==(const ProgressUpdate&) const = default;
};

}  // namespace ornivo
