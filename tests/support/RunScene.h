#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "engine/SortEngine.h"
#include "support/FailingFiles.h"
#include "support/Pictures.h"
#include "support/RunReport.h"
#include "support/ScriptedIdentifier.h"
#include "support/TempFolder.h"

namespace ornivo::testing {

/// A raw label of the classifier with its display name.
struct Bird {
    std::string label;
    std::string name;
};
inline const Bird baldEagle{"Haliaeetus_leucocephalus", "Bald Eagle"};
inline const Bird robin{"Erithacus_rubecula", "European Robin"};
inline const Bird grebe{"Aechmophorus_clarkii", "Clark's Grebe"};
inline const Bird tit{"Aegithalos_caudatus", "Long-tailed Tit"};

/// Everything around a run: a folder of real pictures, a destination, files that fail on demand,
/// an identifier that knows each picture, and the engine. What is added becomes part of `input`
/// in its order. The gate is 0.5375.
class RunScene {
public:
    /// `destination` is a folder of the scene's own unless given.
    explicit RunScene(
        std::shared_ptr<ScriptedIdentifier> identifier = std::make_shared<ScriptedIdentifier>(),
        std::filesystem::path destination = {}, unsigned workers = 2);

    /// A JPEG for which these are the guesses.
    std::filesystem::path picture(const std::string& name, IdentifiedSpecies species,
                                  const Exif& exif = {});
    std::filesystem::path picture(const std::string& name, const Bird& bird, double confidence,
                                  const Exif& exif = {});
    /// A JPEG on which the identifier fails.
    std::filesystem::path failingPicture(const std::string& name, std::exception_ptr failure);
    /// A RAW file for which this is the guess.
    std::filesystem::path raw(const std::string& name, const Bird& bird, double confidence);
    /// A file with that name which is no picture.
    std::filesystem::path junk(const std::string& name);
    /// A file in the source that is not part of the list.
    std::filesystem::path sidecar(const std::string& name, const std::string& contents = "edits");

    /// Runs `input` to its end.
    RunReport run();

    /// A new engine with the same identifier and files, as after a relaunch.
    void relaunch();
    /// The engine goes, for good.
    void closeEngine() { engine_.reset(); }

    /// The files in the destination and below it, by their paths from there.
    std::set<std::string> filed() const;
    /// The contents of a file in the destination.
    std::string contents(const std::string& path) const;

    SortEngine& engine() { return *engine_; }
    JobController& controller() { return *controller_; }
    ScriptedIdentifier& identifier() { return *identifier_; }
    std::shared_ptr<ScriptedIdentifier> sharedIdentifier() { return identifier_; }
    FailingFiles& files() { return *files_; }
    std::filesystem::path source() const { return folder_ / "source"; }

    SortEngine::RunInput input;

private:
    std::filesystem::path add(std::filesystem::path path);
    int newWidth() { return nextWidth_ += 2; }

    TempFolder folder_;
    std::shared_ptr<ScriptedIdentifier> identifier_;
    std::shared_ptr<JobController> controller_ = std::make_shared<JobController>();
    std::shared_ptr<FailingFiles> files_ = std::make_shared<FailingFiles>();
    unsigned workers_;
    std::unique_ptr<SortEngine> engine_;
    int nextWidth_ = 32;
};

}  // namespace ornivo::testing
