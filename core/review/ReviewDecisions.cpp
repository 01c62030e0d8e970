#include "review/ReviewDecisions.h"

#include <optional>
#include <utility>

#include "media/LyingShot.h"
#include "media/Shots.h"
#include "media/Sidecars.h"
#include "platform/Error.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "review/PosterFolder.h"
#include "review/UncertainFolder.h"

namespace ornivo::ReviewDecisions {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view blanksAndTabs = " \t";

std::string_view trimmedOfBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(blanksAndTabs);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanksAndTabs) - first + 1);
}

/// The first two fields of a line, which are all that count; fewer where the line holds fewer. A
/// quotation mark opens a quoted part wherever it stands; what is still quoted at the end of the
/// line ends there.
std::vector<std::string> firstFields(std::string_view line) {
    std::vector<std::string> fields(1);
    bool isQuoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char each = line[i];
        const bool isDoubled = isQuoted && each == '"' && line.substr(i + 1).starts_with('"');
        if (isDoubled) {
            fields.back() += each;
            ++i;
        } else if (each == '"') {
            isQuoted = !isQuoted;
        } else if (each == ',' && !isQuoted) {
            if (fields.size() == 2) return fields;
            fields.emplace_back();
        } else {
            fields.back() += each;
        }
    }
    return fields;
}

std::optional<Decision> decisionOf(std::string_view line) {
    const auto fields = firstFields(trimmedOfBlanks(line));
    if (fields.size() < 2) return std::nullopt;
    const std::string_view fileName = trimmedOfBlanks(fields[0]);
    const std::string_view species = trimmedOfBlanks(fields[1]);
    if (fileName.empty() || species.empty()) return std::nullopt;
    if (equalIgnoringCase(fileName, "filename")) return std::nullopt;
    return Decision{std::string(fileName), std::string(species)};
}

/// Whether a file in a folder can have this name, and nothing but such a file.
bool isNameInFolder(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

/// The species as the name of one folder; empty where nothing but dots is left of it, which would
/// lead out of the destination.
std::string decidedFolderName(std::string_view species) {
    std::string name(species);
    for (const char unusable : {'/', '\\', ':', '\0'}) name = replacing(name, unusable, ' ');
    name = trimmed(name);
    return name.find_first_not_of('.') == std::string::npos ? "" : name;
}

/// The shots of one `_Uncertain`, which leave it as they are decided.
class DecidedShots {
public:
    DecidedShots(const fs::path& destination, Files& files)
        : DecidedShots(destination, files, namesOrNone(destination / uncertainFolderName, files)) {}

    void file(const Decision& decision) {
        const std::string name = lastPathComponent(decision.fileName);
        const std::string folder = decidedFolderName(decision.species);
        if (!isNameInFolder(name) || folder.empty()) {
            outcome_.failed.push_back(decision.fileName);
        } else if (!isFile(uncertain_ / name)) {
            outcome_.notFound.push_back(name);
        } else if (moveInto(destination_ / folder, name)) {
            ++outcome_.moved;
            outcome_.folders.insert(folder);
        } else {
            outcome_.failed.push_back(name);
        }
    }

    const Outcome& outcome() const { return outcome_; }

private:
    DecidedShots(const fs::path& destination, Files& files, const std::vector<std::string>& names)
        : destination_(destination),
          uncertain_(destination / uncertainFolderName),
          files_(files),
          siblings_(names),
          companions_(names) {}

    /// The folder of a day is none, though a decision may name it.
    bool isFile(const fs::path& path) const {
        return files_.exists(path) && !files_.isFolder(path);
    }

    /// Answers false if the main file stayed where it was.
    bool moveInto(const fs::path& folder, const std::string& name) {
        try {
            files_.createDirectories(folder);
            const LyingShot shot = shotNamed(name);
            shot.moveTo(folder, files_);
            PosterFolder(uncertain_, files_).remove(shot);
            return true;
        } catch (const Error&) {
            return false;
        }
    }

    LyingShot shotNamed(const std::string& name) const {
        LyingShot shot{uncertain_, withCompanions(name), {}};
        for (const std::string& sibling : siblings_.namesBeside(name)) {
            shot.siblings.push_back(withCompanions(sibling));
        }
        return shot;
    }

    LyingShot::File withCompanions(const std::string& name) const {
        LyingShot::File file{name, {}};
        for (const auto& [companion, wholeName] : companions_.companionNames(name)) {
            file.companions.push_back({uncertain_ / companion, wholeName});
        }
        return file;
    }

    const fs::path destination_;
    const fs::path uncertain_;
    Files& files_;
    /// What belongs to what, as it lay before the first decision.
    const Shots::Listing siblings_;
    const Sidecars::Listing companions_;
    Outcome outcome_;
};

std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace

std::vector<Decision> parse(std::string_view text) {
    std::vector<Decision> decisions;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
        if (auto decision = decisionOf(line)) decisions.push_back(std::move(*decision));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return decisions;
}

Outcome apply(const std::vector<Decision>& decisions, const fs::path& destination, Files& files) {
    DecidedShots shots(destination, files);
    for (const Decision& decision : decisions) shots.file(decision);
    return shots.outcome();
}

std::string statusText(const Outcome& outcome) {
    std::string text = "Filed " + counted(static_cast<std::size_t>(outcome.moved), "photo") +
                       " into " + counted(outcome.folders.size(), "folder") + ".";
    if (!outcome.notFound.empty()) {
        text += " " + std::to_string(outcome.notFound.size()) +
                " were not in _Uncertain — already filed, or renamed.";
    }
    if (!outcome.failed.empty()) {
        text += " " + std::to_string(outcome.failed.size()) + " could not be moved.";
    }
    return text;
}

}  // namespace ornivo::ReviewDecisions
