#include "cli/Shot.h"

#include "cli/Numbers.h"
#include "identification/BirdClassifierLabels.h"

namespace ornivo::cli {

std::string shotLine(const Shot& shot) {
    if (shot.failure) return "✗ " + shot.fileName + ": " + *shot.failure;
    if (!shot.species) return shot.fileName;
    const std::string name = BirdClassifierLabels::displayName(shot.species->topLabel());
    const std::string line =
        shot.fileName + ": " + name + " " + percentage(shot.species->confidence());
    if (shot.folder) return line + " → " + *shot.folder + "/";
    return shot.called ? line : line + ", no confirmed call";
}

Tone toneOf(const Shot& shot) {
    if (shot.failure) return Tone::error;
    return shot.called && shot.folder ? Tone::accent : Tone::subdued;
}

}  // namespace ornivo::cli
