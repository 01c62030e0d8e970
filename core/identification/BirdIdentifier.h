#pragma once

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "identification/SpeciesPrior.h"
#include "platform/ImageClassifier.h"
#include "vocabulary/BirdIdentifying.h"

namespace ornivo {

/// Tells birds by their looks: an image classifier, whose answer a prior re-weights. Never changes
/// once made. Callers on several threads take turns at the classifier.
class BirdIdentifier final : public BirdIdentifying {
public:
    /// Loads the classifier from a model package or file, or a compiled model (.mlmodelc), or,
    /// without a path, the one that ships with the program. A package is compiled first, once for
    /// each content. Raises `BirdIdentifierError::modelNotFound` when none ships, `Error` when the
    /// model cannot be compiled or loaded, `BirdIdentifierError::labelSetMismatch` when its labels
    /// are not exactly those of the common-name table.
    BirdIdentifier(ConfidencePolicy policy, std::shared_ptr<const SpeciesPrior> prior,
                   const std::optional<std::filesystem::path>& modelURL);

    /// Takes a classifier that is loaded already; its labels are checked in the same way.
    BirdIdentifier(ConfidencePolicy policy, std::shared_ptr<const SpeciesPrior> prior,
                   std::unique_ptr<ImageClassifier> classifier);

    ConfidencePolicy policy() const override { return policy_; }
    bool usesLocation() const override { return prior_->usesLocation(); }
    bool usesDate() const override { return prior_->usesDate(); }

    using BirdIdentifying::identify;
    IdentifiedSpecies identify(const Bitmap& image, std::uint32_t orientation,
                               const std::optional<PhotoLocation>& location) override;
    /// The best `policy().topK` candidates, at least one. Raises
    /// `BirdIdentifierError::imageTooSmall` for an image below 224 pixels on a side, and
    /// `identificationFailed` when the classifier or the prior leaves no candidate.
    IdentifiedSpecies identify(const Bitmap& image, std::uint32_t orientation,
                               const IdentificationContext& context) override;

    /// The model that ships with the program, a compiled one first; absent when there is none.
    static std::optional<std::filesystem::path> bundledModelURL();

    /// The compiled form of a model, made now if it is not in the user's caches directory yet.
    /// Making one removes those of other models. Raises `Error`.
    static std::filesystem::path compiledURL(const std::filesystem::path& model);

    /// 16 hexadecimal digits that change when the content of a model, or the name of a file in it,
    /// does. Raises `Error` when a file cannot be read.
    static std::string contentFingerprint(const std::filesystem::path& model);

private:
    ImageClassification classify(const Bitmap& image, std::uint32_t orientation);

    ConfidencePolicy policy_;
    std::shared_ptr<const SpeciesPrior> prior_;
    std::mutex mutex_;
    std::unique_ptr<ImageClassifier> classifier_;
};

}  // namespace ornivo
