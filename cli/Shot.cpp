#include "cli/Shot.h"

#include "cli/Numbers.h"
#include "engine/FolderName.h"
#include "engine/SortEngine.h"
#include "identification/BirdClassifierLabels.h"

namespace ornivo::cli {

std::string shotLine(const Shot& shot) {
    if (shot.failure) return "✗ " + shot.fileName + ": " + *shot.failure;
    if (!shot.species) return shot.fileName;
    const std::string name = BirdClassifierLabels::displayName(shot.species->topLabel());
    const std::string folder = shot.called ? folderName(name) : SortEngine::uncertainFolderName;
    return shot.fileName + ": " + name + " " + percentage(shot.species->confidence()) + " → " +
           folder + "/";
}

Tone toneOf(const Shot& shot) {
    if (shot.failure) return Tone::error;
    return shot.called ? Tone::accent : Tone::subdued;
}

}  // namespace ornivo::cli
