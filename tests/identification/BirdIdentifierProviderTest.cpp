#include "identification/BirdIdentifierProvider.h"

#include <gtest/gtest.h>

#include "identification/BirdIdentifier.h"
#include "identification/NoSpeciesPrior.h"
#include "identification/UnavailableBirdIdentifier.h"
#include "support/Pictures.h"
#include "support/TempCaches.h"
#include "support/TinyNetwork.h"

namespace ornivo {
namespace {

using testing::filled;
using testing::TempCaches;
using testing::TempFolder;

const ConfidencePolicy policy{0.7, 2};

std::shared_ptr<BirdIdentifying> made(const std::optional<std::filesystem::path>& modelURL) {
    return BirdIdentifierProvider::make(policy, std::make_shared<NoSpeciesPrior>(), modelURL);
}

const UnavailableBirdIdentifier* unavailable(const std::shared_ptr<BirdIdentifying>& identifier) {
    return dynamic_cast<const UnavailableBirdIdentifier*>(identifier.get());
}

TEST(BirdIdentifierProvider, MakesARealIdentifierOfTheBundledModel) {
    const TempCaches caches;
    EXPECT_TRUE(BirdIdentifierProvider::isModelBundled());
    const auto identifier = made(std::nullopt);
    EXPECT_NE(dynamic_cast<const BirdIdentifier*>(identifier.get()), nullptr);
    EXPECT_EQ(identifier->policy(), policy);
}

TEST(BirdIdentifierProvider, CarriesAFailureOfIdentificationAsItIs) {
    const TempCaches caches;
    const TempFolder folder;
    const auto identifier = made(testing::writeModelPackage(folder / "BirdClassifier.mlpackage"));
    ASSERT_TRUE(unavailable(identifier));
    EXPECT_EQ(unavailable(identifier)->error().kind(), BirdIdentifierError::Case::labelSetMismatch);
    EXPECT_EQ(identifier->policy(), policy);
}

TEST(BirdIdentifierProvider, AnyOtherFailureKeepsItsOwnDescription) {
    const TempCaches caches;
    const TempFolder folder;
    const std::filesystem::path missing = folder / "BirdClassifier.mlpackage";
    const auto identifier = made(missing);
    ASSERT_TRUE(unavailable(identifier));
    EXPECT_EQ(unavailable(identifier)->error(),
              BirdIdentifierError::identificationFailed(missing.string() +
                                                        ": No such file or directory"));
    EXPECT_EQ(identifier->policy(), policy);
}

TEST(UnavailableBirdIdentifier, FailsForAnyImageWithTheReasonItHolds) {
    UnavailableBirdIdentifier identifier(policy, BirdIdentifierError::modelNotFound());
    for (const Bitmap& image : {filled(1, 1), filled(640, 480)}) {
        try {
            identifier.identify(image);
            FAIL() << "it identified";
        } catch (const BirdIdentifierError& error) {
            EXPECT_EQ(error.localizedDescription(),
                      "BirdClassifier.mlpackage was not found in the package bundle.");
        }
    }
}

TEST(UnavailableBirdIdentifier, FailsForAnyContextAndUsesNone) {
    UnavailableBirdIdentifier identifier(policy, BirdIdentifierError::modelNotFound());
    EXPECT_THROW(identifier.identify(filled(300, 300), 1,
                                     IdentificationContext(PhotoLocation::make(1, 2), 3)),
                 BirdIdentifierError);
    EXPECT_THROW(identifier.identify(filled(300, 300), 1, PhotoLocation::make(1, 2)),
                 BirdIdentifierError);
    EXPECT_FALSE(identifier.usesLocation());
    EXPECT_FALSE(identifier.usesDate());
    EXPECT_EQ(identifier.policy(), policy);
}

}  // namespace
}  // namespace ornivo
