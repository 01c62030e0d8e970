#include "identification/BirdIdentifier.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <thread>

#include "identification/BirdClassifierLabels.h"
#include "identification/CompositePrior.h"
#include "identification/NoSpeciesPrior.h"
#include "identification/RangeListPrior.h"
#include "identification/SeasonPrior.h"
#include "platform/Error.h"
#include "support/Pictures.h"
#include "vocabulary/BirdIdentifierError.h"

namespace ornivo {
namespace {

using ::testing::ElementsAre;
using testing::filled;
using Candidate = IdentifiedSpecies::Candidate;

std::vector<std::string> tableLabels() {
    std::vector<std::string> labels;
    for (const auto& [label, name] : BirdClassifierLabels::commonNames()) labels.push_back(label);
    return labels;
}

/// How many labels the common-name table has, and so many more.
std::string tableSize(int more = 0) {
    return std::to_string(BirdClassifierLabels::speciesCount() + more);
}

/// Answers what it was given, and remembers how it was asked.
class ScriptedClassifier final : public ImageClassifier {
public:
    explicit ScriptedClassifier(std::vector<Observation> answer,
                                std::vector<std::string> labels = tableLabels())
        : answer_(std::move(answer)), labels_(std::move(labels)) {}

    std::vector<std::string> classLabels() const override { return labels_; }

    ImageClassification classify(const Bitmap& image, std::uint32_t orientation) override {
        if (failure) throw *failure;
        ++calls;
        seenWidth = image.width();
        seenOrientation = orientation;
        return {answer_, subject};
    }

    std::optional<Error> failure;
    std::optional<SubjectBox> subject;
    int calls = 0;
    int seenWidth = 0;
    std::uint32_t seenOrientation = 0;

private:
    std::vector<Observation> answer_;
    std::vector<std::string> labels_;
};

const std::vector<Observation> fourBirds{
    {"Pica_pica", 0.5F}, {"Asio_otus", 0.25F}, {"Ardea_alba", 0.125F}, {"Corvus_corax", 0.125F}};

struct Fixture {
    explicit Fixture(std::vector<Observation> answer = fourBirds, ConfidencePolicy policy = {},
                     std::shared_ptr<const SpeciesPrior> prior = std::make_shared<NoSpeciesPrior>())
        : Fixture(std::make_unique<ScriptedClassifier>(std::move(answer)), policy,
                  std::move(prior)) {}

    ScriptedClassifier* classifier;
    BirdIdentifier identifier;

private:
    Fixture(std::unique_ptr<ScriptedClassifier> scripted, ConfidencePolicy policy,
            std::shared_ptr<const SpeciesPrior> prior)
        : classifier(scripted.get()), identifier(policy, std::move(prior), std::move(scripted)) {}
};

std::shared_ptr<const SpeciesPrior> rangeOf(std::unordered_set<std::string> labels) {
    return std::make_shared<RangeListPrior>(
        std::vector<RangeListPrior::Region>{{"Box", {40, 50}, {0, 20}, std::move(labels)}}, 0.15);
}

const std::optional<PhotoLocation> inTheBox = PhotoLocation::make(45, 10);

/// The failure of identifying a picture.
std::optional<BirdIdentifierError> failureOf(BirdIdentifier& identifier, const Bitmap& image) {
    try {
        identifier.identify(image);
    } catch (const BirdIdentifierError& error) {
        return error;
    }
    return std::nullopt;
}

/// The failure of making an identifier with a classifier of these labels.
std::optional<BirdIdentifierError> failureWith(std::vector<std::string> labels) {
    try {
        const BirdIdentifier identifier(
            ConfidencePolicy(), std::make_shared<NoSpeciesPrior>(),
            std::make_unique<ScriptedClassifier>(fourBirds, std::move(labels)));
    } catch (const BirdIdentifierError& error) {
        return error;
    }
    return std::nullopt;
}

// Identifying

TEST(BirdIdentifier, AnswersTheBestCandidatesInDescendingConfidence) {
    Fixture fixture;
    const IdentifiedSpecies species = fixture.identifier.identify(filled(300, 300));
    EXPECT_EQ(species.top, (Candidate{"Pica_pica", 0.5}));
    EXPECT_THAT(species.topK, ElementsAre(Candidate{"Pica_pica", 0.5}, Candidate{"Asio_otus", 0.25},
                                          Candidate{"Ardea_alba", 0.125}));
}

TEST(BirdIdentifier, WidensConfidencesFromThirtyTwoBits) {
    Fixture fixture({{"Pica_pica", 0.7F}, {"Asio_otus", 0.3F}});
    EXPECT_EQ(fixture.identifier.identify(filled(300, 300)).confidence(),
              static_cast<double>(0.7F));
}

TEST(BirdIdentifier, SortsStablySoThatEqualsKeepTheClassifiersOrder) {
    Fixture fixture({{"Pica_pica", 0.25F}, {"Asio_otus", 0.5F}, {"Ardea_alba", 0.25F}});
    EXPECT_THAT(fixture.identifier.identify(filled(300, 300)).topK,
                ElementsAre(Candidate{"Asio_otus", 0.5}, Candidate{"Pica_pica", 0.25},
                            Candidate{"Ardea_alba", 0.25}));
}

TEST(BirdIdentifier, AnswersFewerCandidatesWhenTheClassifierHasNoMore) {
    Fixture fixture({{"Pica_pica", 1.0F}}, {0.5, 3});
    EXPECT_EQ(fixture.identifier.identify(filled(300, 300)).topK.size(), 1U);
}

TEST(BirdIdentifier, APolicyThatKeepsNoneOrLessStillAnswersOneCandidate) {
    for (const int topK : {0, -1, -100, 1}) {
        Fixture fixture(fourBirds, {0.5, topK});
        const IdentifiedSpecies species = fixture.identifier.identify(filled(300, 300));
        EXPECT_THAT(species.topK, ElementsAre(Candidate{"Pica_pica", 0.5})) << topK;
        EXPECT_EQ(species.top, species.topK.front());
    }
}

TEST(BirdIdentifier, HandsTheImageAndItsOrientationToTheClassifier) {
    Fixture fixture;
    fixture.identifier.identify(filled(301, 302), 6);
    EXPECT_EQ(fixture.classifier->seenWidth, 301);
    EXPECT_EQ(fixture.classifier->seenOrientation, 6U);
}

TEST(BirdIdentifier, PassesEveryClassThroughThePriorAndNotATopFew) {
    Fixture fixture(fourBirds, {0.5, 1}, rangeOf({"Corvus_corax"}));
    EXPECT_EQ(fixture.identifier.identify(filled(300, 300), 1, inTheBox).topLabel(),
              "Corvus_corax");
}

TEST(BirdIdentifier, UsesTheLocationAloneWhenThatIsGiven) {
    const auto season =
        std::make_shared<SeasonPrior>(SeasonPrior::LabelsByMonth{{5, {"Asio_otus"}}}, 0.0);
    Fixture fixture(fourBirds, {}, season);
    EXPECT_EQ(fixture.identifier.identify(filled(300, 300), 1, inTheBox).topLabel(), "Pica_pica");
    EXPECT_EQ(
        fixture.identifier.identify(filled(300, 300), 1, IdentificationContext(std::nullopt, 5))
            .topLabel(),
        "Asio_otus");
}

TEST(BirdIdentifier, DoesNotRenormaliseByItself) {
    Fixture fixture({{"Pica_pica", 0.25F}, {"Asio_otus", 0.125F}});
    EXPECT_EQ(fixture.identifier.identify(filled(300, 300)).confidence(), 0.25);
}

TEST(BirdIdentifier, TellsWhatItsPriorUses) {
    const auto date = std::make_shared<SeasonPrior>(SeasonPrior::LabelsByMonth{}, 0.35);
    EXPECT_FALSE(Fixture().identifier.usesLocation());
    EXPECT_FALSE(Fixture().identifier.usesDate());
    EXPECT_TRUE(Fixture(fourBirds, {}, rangeOf({})).identifier.usesLocation());
    EXPECT_TRUE(Fixture(fourBirds, {}, date).identifier.usesDate());
    const ConfidencePolicy policy{0.7, 2};
    EXPECT_EQ(Fixture(fourBirds, policy).identifier.policy(), policy);
}

// The size floor

TEST(BirdIdentifier, AnImageOf224By224PixelsPasses) {
    Fixture fixture;
    EXPECT_EQ(fixture.identifier.identify(filled(224, 224)).topLabel(), "Pica_pica");
}

TEST(BirdIdentifier, ASmallerImageFailsBeforeTheClassifierRuns) {
    Fixture fixture;
    for (const auto& [width, height] : {std::pair{223, 224}, {224, 223}, {1, 1}, {5000, 223}}) {
        EXPECT_EQ(failureOf(fixture.identifier, filled(width, height)),
                  BirdIdentifierError::imageTooSmall());
    }
    EXPECT_EQ(fixture.classifier->calls, 0);
}

// Failures

TEST(BirdIdentifier, AFailureOfTheClassifierKeepsItsWords) {
    Fixture fixture;
    fixture.classifier->failure = Error("Classifier", 1, "The classifier gave up.");
    EXPECT_EQ(failureOf(fixture.identifier, filled(300, 300)),
              BirdIdentifierError::identificationFailed("The classifier gave up."));
}

TEST(BirdIdentifier, AfterAFailureTheNextImageIsIdentified) {
    Fixture fixture;
    fixture.classifier->failure = Error("Classifier", 1, "The classifier gave up.");
    EXPECT_TRUE(failureOf(fixture.identifier, filled(300, 300)));
    fixture.classifier->failure.reset();
    EXPECT_EQ(fixture.identifier.identify(filled(300, 300)).topLabel(), "Pica_pica");
}

TEST(BirdIdentifier, NoClassificationsAreAFailure) {
    Fixture fixture(std::vector<Observation>{});
    EXPECT_EQ(failureOf(fixture.identifier, filled(300, 300)),
              BirdIdentifierError::identificationFailed("The model returned no classifications."));
}

TEST(BirdIdentifier, APriorThatLeavesNoCandidateIsAFailure) {
    class EmptyingPrior final : public SpeciesPrior {
        bool usesLocation() const override { return false; }
        Candidates adjusted(Candidates, const IdentificationContext&) const override { return {}; }
    };
    Fixture fixture(fourBirds, {}, std::make_shared<EmptyingPrior>());
    EXPECT_EQ(
        failureOf(fixture.identifier, filled(300, 300)),
        BirdIdentifierError::identificationFailed("The species prior returned no candidates."));
}

// Labels

TEST(BirdIdentifier, TakesAClassifierWhoseLabelsAreThoseOfTheTableInAnyOrder) {
    std::vector<std::string> labels = tableLabels();
    std::ranges::reverse(labels);
    EXPECT_EQ(failureWith(labels), std::nullopt);
    labels.push_back(labels.front());
    EXPECT_EQ(failureWith(labels), std::nullopt);
}

TEST(BirdIdentifier, RefusesAClassifierWithOneLabelMoreAndNamesIt) {
    std::vector<std::string> labels = tableLabels();
    labels.emplace_back("Phoenix_phoenix");
    EXPECT_EQ(failureWith(labels),
              BirdIdentifierError::labelSetMismatch(
                  "Model has " + tableSize(1) + " labels, lookup has " + tableSize() +
                  ". In model only: [\"Phoenix_phoenix\"]. In lookup only: []."));
}

TEST(BirdIdentifier, RefusesAClassifierWithOneLabelLessAndNamesIt) {
    std::vector<std::string> labels = tableLabels();
    std::erase(labels, "Pica_pica");
    EXPECT_EQ(failureWith(labels),
              BirdIdentifierError::labelSetMismatch(
                  "Model has " + tableSize(-1) + " labels, lookup has " + tableSize() +
                  ". In model only: []. In lookup only: [\"Pica_pica\"]."));
}

TEST(BirdIdentifier, NamesOnlyTheFirstFiveOfManyDifferentLabelsInTextOrder) {
    std::vector<std::string> labels = tableLabels();
    for (const char* const extra : {"Zz_7", "Zz_2", "Zz_6", "Zz_1", "Zz_5", "Zz_4", "Zz_3"}) {
        labels.emplace_back(extra);
    }
    const auto error = failureWith(labels);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->localizedDescription(),
              "The bundled classifier does not match its common-name lookup. Model has " +
                  tableSize(7) + " labels, lookup has " + tableSize() +
                  ". In model only: [\"Zz_1\", \"Zz_2\", \"Zz_3\", \"Zz_4\", \"Zz_5\"]. "
                  "In lookup only: [].");
}

TEST(BirdIdentifier, RefusesAClassifierThatNamesNoLabels) {
    const auto error = failureWith({});
    ASSERT_TRUE(error);
    EXPECT_EQ(error->kind(), BirdIdentifierError::Case::labelSetMismatch);
    EXPECT_THAT(error->localizedDescription(),
                ::testing::StartsWith("The bundled classifier does not match its common-name "
                                      "lookup. Model has 0 labels, lookup has " +
                                      tableSize() + ". In model only: []. In lookup only: [\""));
}

TEST(BirdIdentifier, HandsOnWhereTheBirdIs) {
    Fixture fixture;
    EXPECT_EQ(fixture.identifier.identify(filled(300, 300)).birdBox, std::nullopt);
    const SubjectBox box{0.25F, 0.5F, 0.125F, 0.75F};
    fixture.classifier->subject = box;
    EXPECT_EQ(fixture.identifier.identify(filled(300, 300)).birdBox, box);
}

// Threads

TEST(BirdIdentifier, CallersOnSeveralThreadsTakeTurnsAtTheClassifier) {
    class CountingClassifier final : public ImageClassifier {
    public:
        explicit CountingClassifier(std::atomic<int>& overlaps) : overlaps_(overlaps) {}
        std::vector<std::string> classLabels() const override { return tableLabels(); }
        ImageClassification classify(const Bitmap&, std::uint32_t) override {
            if (inside_.exchange(true)) ++overlaps_;
            std::this_thread::yield();
            inside_ = false;
            return {fourBirds, std::nullopt};
        }

    private:
        std::atomic<int>& overlaps_;
        std::atomic<bool> inside_ = false;
    };

    std::atomic<int> overlaps = 0;
    BirdIdentifier identifier(ConfidencePolicy(), std::make_shared<NoSpeciesPrior>(),
                              std::make_unique<CountingClassifier>(overlaps));
    const Bitmap image = filled(300, 300);
    {
        const auto callFiftyTimes = [&] {
            for (int call = 0; call < 50; ++call) {
                EXPECT_EQ(identifier.identify(image).topLabel(), "Pica_pica");
            }
        };
        const std::array<std::jthread, 3> callers{std::jthread(callFiftyTimes),
                                                  std::jthread(callFiftyTimes),
                                                  std::jthread(callFiftyTimes)};
    }
    EXPECT_EQ(overlaps, 0);
}

}  // namespace
}  // namespace ornivo
