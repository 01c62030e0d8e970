#include "vocabulary/BirdSpecies.h"

#include "platform/Text.h"

namespace ornivo {

std::string BirdSpecies::id() const {
    return trimmed(lowercased(commonName + "|" + scientificName));
}

}  // namespace ornivo
