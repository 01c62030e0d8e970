#include "app/DeferredIdentifier.h"

#include <gtest/gtest.h>

#include <latch>

#include "support/Pictures.h"
#include "support/ScriptedIdentifier.h"
#include "vocabulary/BirdIdentifierError.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;

TEST(DeferredIdentifier, KnowsItsPolicyBeforeItIsMade) {
    std::latch mayEnd(1);
    const ConfidencePolicy policy{0.7, 2};
    const DeferredIdentifier identifier(policy, [&] {
        mayEnd.wait();
        return std::make_shared<ScriptedIdentifier>();
    });
    EXPECT_EQ(identifier.policy(), policy);
    mayEnd.count_down();
}

TEST(DeferredIdentifier, PassesEveryQuestionOn) {
    const auto made = std::make_shared<ScriptedIdentifier>(/*usesLocation=*/true,
                                                           /*usesDate=*/true);
    const auto answer = guesses({{"Pandion_haliaetus", 0.9}});
    made->answer(32, answer);
    DeferredIdentifier identifier({}, [made] { return made; });
    EXPECT_TRUE(identifier.usesLocation());
    EXPECT_TRUE(identifier.usesDate());
    const auto place = PhotoLocation::make(51.5, -0.1);
    EXPECT_EQ(identifier.identify(filled(32, 24), 6, IdentificationContext(place, 5)), answer);
    EXPECT_EQ(identifier.identify(filled(32, 24), 3, place), answer);
    ASSERT_EQ(made->calls().size(), 2U);
    EXPECT_EQ(made->calls()[0].orientation, 6U);
    EXPECT_EQ(made->calls()[0].context, IdentificationContext(place, 5));
    EXPECT_EQ(made->calls()[1].context, IdentificationContext(place, std::nullopt));
}

TEST(DeferredIdentifier, PassesFailuresOn) {
    const auto made = std::make_shared<ScriptedIdentifier>();
    DeferredIdentifier identifier({}, [made] { return made; });
    EXPECT_THROW(identifier.identify(filled(32, 24), 1, IdentificationContext()),
                 BirdIdentifierError);
}

}  // namespace
}  // namespace ornivo::app
