#include "cli/TargetNotes.h"

#include "cli/TargetSpecies.h"
#include "cli/TerminalText.h"
#include "identification/TargetSpecies.h"

namespace ornivo::cli {

void tellTargets(const std::vector<BirdSpecies>& targets, Console& console) {
    for (const BirdSpecies& target : targets) {
        const bool known = TargetSpecies::isKnown(target);
        console.note(printable((known ? "✓ " : "⚠ ") + namesOf(target)),
                     known ? Tone::accent : Tone::warning);
    }
    const std::string message = unrecognisedMessage(targets);
    if (!message.empty()) console.note(printable(message), Tone::warning);
}

}  // namespace ornivo::cli
