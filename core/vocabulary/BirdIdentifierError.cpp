#include "vocabulary/BirdIdentifierError.h"

#include <utility>

namespace ornivo {

BirdIdentifierError::BirdIdentifierError(Case kind, std::string description)
    : Error("BirdIdentifierError", static_cast<int>(kind), std::move(description)), kind_(kind) {}

BirdIdentifierError BirdIdentifierError::identificationFailed(const std::string& reason) {
    return {Case::identificationFailed, reason};
}

BirdIdentifierError BirdIdentifierError::labelSetMismatch(const std::string& details) {
    return {Case::labelSetMismatch,
            "The bundled classifier does not match its common-name lookup. " + details};
}

BirdIdentifierError BirdIdentifierError::modelNotFound() {
    return {Case::modelNotFound, "BirdClassifier.mlpackage was not found in the package bundle."};
}

BirdIdentifierError BirdIdentifierError::imageTooSmall() {
    return {Case::imageTooSmall, "Image is smaller than 224×224 pixels."};
}

}  // namespace ornivo
