#include "cli/ResumeCommandLine.h"

#include <algorithm>

namespace ornivo::cli {

namespace {

bool isPlain(char character) {
    constexpr std::string_view plain = "+,-./:=@_";
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z') || plain.find(character) != plain.npos;
}

}  // namespace

std::string shellWord(std::string_view text) {
    if (!text.empty() && std::ranges::all_of(text, isPlain)) return std::string(text);
    std::string word = "'";
    for (const char character : text) {
        if (character == '\'') word += "'\\'";
        word += character;
    }
    return word + "'";
}

std::string resumeCommandLine(const RunScope& scope) {
    std::string line = "ornivo-cli resume " + shellWord(scope.destination.string());
    for (const BirdSpecies& target : scope.targets) {
        line += " --species " + shellWord(target.displayName());
    }
    return line;
}

}  // namespace ornivo::cli
