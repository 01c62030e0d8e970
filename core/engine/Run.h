#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "engine/RunLaws.h"
#include "engine/SortEngine.h"
#include "media/BurstResolver.h"
#include "media/Shots.h"

namespace ornivo {

/// What a run knows from its start to its finished event.
struct SortEngine::Run {
    const RunInput& input;
    EventStream<Event>& sink;
    /// Asked for when the engine goes.
    const std::stop_token& stop;

    const std::chrono::steady_clock::time_point started;
    /// A shot whose top confidence reaches it is called. The same for the whole run.
    const double gate;
    /// Over the whole list, so that a follower is one even if its leader came before a stop.
    const Shots::Grouping grouping;
    int lastProcessed;

    /// For what is written at the end; null where none can be kept.
    std::unique_ptr<KeptRoom> roomForRecord;
    std::unique_ptr<KeptRoom> roomForPage;

    /// Judges what was done, in builds that check the laws.
    std::optional<RunLaws> laws;

    SortResult sort;
    FindResult find;
    std::map<std::string, int> perSpecies;
    int unidentified;
    std::vector<std::string> warnings;

    /// Where the shots of this run lie in `_Uncertain`, by their numbers in the camera's series.
    std::map<std::int64_t, std::filesystem::path> uncertainBySequence;
    std::vector<BurstResolver::Frame> frames;

    bool isFind() const { return input.mode == AppMode::find; }

    std::string fileName(std::size_t index) const;

    /// The file's number in the camera's series.
    std::int64_t sequence(std::size_t index) const;

    /// Whether the file is dealt with under another one that leads its shot.
    bool isFollower(std::size_t index) const;

    /// The files, from where the run begins, that lead a shot.
    std::vector<std::size_t> leaders() const;

    /// The other files of the shot that this one leads.
    std::vector<std::filesystem::path> partners(std::size_t index) const;

    /// The files of the shot that this one leads, itself first.
    std::vector<std::filesystem::path> shot(std::size_t index) const;

    /// Keeps a classified shot for the burst pass, if there will be one.
    void rememberFrame(std::size_t index, const ClassifiedShot& classified);

    /// A shot could not be classified or filed: the user gets to read why, and the run goes on.
    void fail(const std::exception& error);
};

}  // namespace ornivo
