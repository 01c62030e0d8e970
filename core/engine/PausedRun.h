#pragma once

#include <array>
#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/Files.h"
#include "vocabulary/PhotoLocation.h"
#include "vocabulary/RawValues.h"

namespace ornivo {

/// The record that a run leaves in its destination when that has filled up: what the run was and
/// how far it got. It lies in `_Paused/resume.json`, and is a convenience, not a guarantee, so no
/// operation on it raises.
struct PausedRun {
    static constexpr const char* folderName = "_Paused";
    static constexpr const char* fileName = "resume.json";
    /// The form of the records written. A record of another form is as good as none.
    static constexpr int currentVersion = 1;

    enum class Reason { userCancelled, diskFull };

    int version = currentVersion;
    std::chrono::sys_seconds pausedAt;
    Reason reason = Reason::diskFull;
    /// Every file of the run's list. For information only; bytes of a name that are not UTF-8
    /// come back as U+FFFD.
    std::vector<std::string> sourcePaths;
    std::string destination;
    /// "sort" or "find".
    std::string mode;
    double gate = 0;
    /// The raw value of the call level that matches the gate; absent for a gate off the ladder.
    std::optional<std::string> callLevel;
    /// As `textOf` gives it.
    std::optional<std::string> assumedLocation;
    std::string burstInheritance;
    std::string copyMode;
    bool rename = false;
    bool dateSubfolders = false;
    int totalPhotos = 0;
    /// Index of the next file to take.
    int stoppedAtIndex = 0;
    int sortedSoFar = 0;
    int uncertainSoFar = 0;

    bool operator==(const PausedRun&) const = default;

    /// Files left to take, at least 0.
    long remainingCount() const;

    /// What is left to do, for the screen.
    std::string summary() const;

    /// Whether settings are those of the stopped run, as far as a change of them would matter.
    bool settingsMatch(double otherGate, const std::optional<std::string>& otherLocation,
                       const std::string& otherCopyMode) const;

    /// Writes the record, replacing one that is there. Answers the record's place, or nothing when
    /// it could not be written.
    std::optional<std::filesystem::path> write(const std::filesystem::path& destinationFolder,
                                               Files& files) const;

    /// The record in a destination; absent when there is none, or none that is whole and of the
    /// current form.
    static std::optional<PausedRun> read(const std::filesystem::path& destinationFolder,
                                         const Files& files);

    /// Removes the record; answers whether it did. The folder around it stays.
    static bool clear(const std::filesystem::path& destinationFolder, Files& files);

    static std::filesystem::path manifestURL(const std::filesystem::path& destinationFolder);

    /// A position as records hold it: latitude, ",", longitude, each in the shortest decimal form
    /// that reads back as the same number.
    static std::string textOf(const PhotoLocation& location);
};

template <>
struct RawValues<PausedRun::Reason> {
    static constexpr std::array table{
        RawValue<PausedRun::Reason>{PausedRun::Reason::userCancelled, "userCancelled"},
        RawValue<PausedRun::Reason>{PausedRun::Reason::diskFull, "diskFull"},
    };
};

}  // namespace ornivo
