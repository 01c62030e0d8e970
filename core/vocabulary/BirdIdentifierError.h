#pragma once

#include <string>

#include "platform/Error.h"

namespace ornivo {

/// The failures of identification. The description is what the user reads.
class BirdIdentifierError : public Error {
public:
    enum class Case { identificationFailed, labelSetMismatch, modelNotFound, imageTooSmall };

    static BirdIdentifierError identificationFailed(const std::string& reason);
    static BirdIdentifierError labelSetMismatch(const std::string& details);
    static BirdIdentifierError modelNotFound();
    static BirdIdentifierError imageTooSmall();

    Case kind() const { return kind_; }

    /// The same case with the same words.
    bool operator==(const BirdIdentifierError& other) const {
        return kind_ == other.kind_ && localizedDescription() == other.localizedDescription();
    }

private:
    BirdIdentifierError(Case kind, std::string description);

    Case kind_;
};

}  // namespace ornivo
