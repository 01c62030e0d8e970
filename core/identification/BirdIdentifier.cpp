#include "identification/BirdIdentifier.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <set>
#include <utility>

#include "identification/BirdClassifierLabels.h"
#include "identification/ImageSizeFloor.h"
#include "platform/NeuralNetwork.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "vocabulary/BirdIdentifierError.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

using Candidate = IdentifiedSpecies::Candidate;
using Labels = std::set<std::string>;

std::unique_ptr<ImageClassifier> loadClassifier(const std::optional<fs::path>& modelURL) {
    const std::optional<fs::path> model = modelURL ? modelURL : BirdIdentifier::bundledModelURL();
    if (!model) throw BirdIdentifierError::modelNotFound();
    const bool isCompiled = pathExtension(lastPathComponent(*model)) == "mlmodelc";
    return std::make_unique<NeuralNetwork>(isCompiled ? *model
                                                      : BirdIdentifier::compiledURL(*model));
}

/// The first few labels of `a` that `b` lacks, as in ["one", "two"].
std::string firstMissing(const Labels& a, const Labels& b) {
    std::vector<std::string> missing;
    std::ranges::set_difference(a, b, std::back_inserter(missing));
    std::ranges::sort(missing, plainTextLess);
    constexpr std::size_t shown = 5;
    missing.resize(std::min(missing.size(), shown));

    std::string list;
    for (const std::string& label : missing) {
        list += (list.empty() ? "\"" : ", \"") + label + "\"";
    }
    return "[" + list + "]";
}

void checkLabels(const ImageClassifier& classifier) {
    const std::vector<std::string> classes = classifier.classLabels();
    const Labels model(classes.begin(), classes.end());
    Labels lookup;
    for (const auto& [label, name] : BirdClassifierLabels::commonNames()) lookup.insert(label);
    if (model == lookup) return;
    throw BirdIdentifierError::labelSetMismatch(
        "Model has " + std::to_string(model.size()) + " labels, lookup has " +
        std::to_string(lookup.size()) + ". In model only: " + firstMissing(model, lookup) +
        ". In lookup only: " + firstMissing(lookup, model) + ".");
}

SpeciesPrior::Candidates candidatesFrom(std::vector<Observation> observations) {
    SpeciesPrior::Candidates candidates;
    candidates.reserve(observations.size());
    for (Observation& observation : observations) {
        candidates.push_back({std::move(observation.identifier), observation.confidence});
    }
    return candidates;
}

}  // namespace

BirdIdentifier::BirdIdentifier(ConfidencePolicy policy, std::shared_ptr<const SpeciesPrior> prior,
                               const std::optional<fs::path>& modelURL)
    : BirdIdentifier(policy, std::move(prior), loadClassifier(modelURL)) {}

BirdIdentifier::BirdIdentifier(ConfidencePolicy policy, std::shared_ptr<const SpeciesPrior> prior,
                               std::unique_ptr<ImageClassifier> classifier)
    : policy_(policy), prior_(std::move(prior)), classifier_(std::move(classifier)) {
    checkLabels(*classifier_);
}

IdentifiedSpecies BirdIdentifier::identify(const Bitmap& image, std::uint32_t orientation,
                                           const std::optional<PhotoLocation>& location) {
    return identify(image, orientation, IdentificationContext(location, std::nullopt));
}

IdentifiedSpecies BirdIdentifier::identify(const Bitmap& image, std::uint32_t orientation,
                                           const IdentificationContext& context) {
    requireIdentifiableSize(image);
    ImageClassification seen = classify(image, orientation);
    SpeciesPrior::Candidates candidates =
        prior_->adjusted(candidatesFrom(std::move(seen.observations)), context);
    if (candidates.empty()) {
        throw BirdIdentifierError::identificationFailed(
            "The species prior returned no candidates.");
    }
    std::ranges::stable_sort(candidates, std::greater(), &Candidate::confidence);
    const auto kept = static_cast<std::size_t>(std::max(1, policy_.topK));
    candidates.resize(std::min(candidates.size(), kept));
    return {candidates.front(), std::move(candidates), seen.subject};
}

ImageClassification BirdIdentifier::classify(const Bitmap& image, std::uint32_t orientation) {
    ImageClassification seen;
    try {
        const std::lock_guard turn(mutex_);
        seen = classifier_->classify(image, orientation);
    } catch (const std::exception& failure) {
        throw BirdIdentifierError::identificationFailed(failure.what());
    }
    if (seen.observations.empty()) {
        throw BirdIdentifierError::identificationFailed("The model returned no classifications.");
    }
    return seen;
}

}  // namespace ornivo
