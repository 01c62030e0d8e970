#include "app/presentation/CardsShown.h"

#include <gtest/gtest.h>

#include "app/presentation/HeaderText.h"

namespace ornivo::app {
namespace {

constexpr JobState busyStates[] = {JobState::running, JobState::paused};

TEST(CardsShown, AtLaunchAreOptionsAndPreview) {
    EXPECT_EQ(cardsShown({}), (CardsShown{.options = true, .preview = true}));
}

TEST(CardsShown, TargetSpeciesAreThereToFindWhileIdle) {
    EXPECT_TRUE(cardsShown({.appMode = AppMode::find}).targetSpecies);
    EXPECT_FALSE(cardsShown({.appMode = AppMode::sort}).targetSpecies);
    for (const JobState busy : busyStates) {
        EXPECT_FALSE(cardsShown({.jobState = busy, .appMode = AppMode::find}).targetSpecies);
    }
}

TEST(CardsShown, APausedRunAndOptionsAreThereWhileIdle) {
    EXPECT_TRUE(cardsShown({.hasPausedRun = true}).pausedRun);
    EXPECT_FALSE(cardsShown({.hasPausedRun = false}).pausedRun);
    for (const JobState busy : busyStates) {
        const CardsShown shown = cardsShown({.jobState = busy, .hasPausedRun = true});
        EXPECT_FALSE(shown.pausedRun);
        EXPECT_FALSE(shown.options);
    }
}

TEST(CardsShown, ProgressIsThereWhileBusyOnceThereIsSome) {
    for (const JobState busy : busyStates) {
        EXPECT_TRUE(cardsShown({.jobState = busy, .hasProgress = true}).progress);
        EXPECT_FALSE(cardsShown({.jobState = busy, .hasProgress = false}).progress);
    }
    EXPECT_FALSE(cardsShown({.hasProgress = true}).progress);
}

TEST(CardsShown, DuringARunAreProgressAndThenThePrediction) {
    EXPECT_EQ(cardsShown({.jobState = JobState::running, .hasProgress = true}),
              (CardsShown{.progress = true}));
    EXPECT_EQ(
        cardsShown({.jobState = JobState::running, .hasProgress = true, .hasPrediction = true}),
        (CardsShown{.progress = true, .prediction = true}));
}

TEST(CardsShown, AfterARunAreItsPredictionAndItsResultInThePlaceOfThePreview) {
    EXPECT_EQ(cardsShown({.hasPrediction = true, .hasSortResult = true}),
              (CardsShown{.options = true, .prediction = true, .sortResult = true}));
    EXPECT_EQ(cardsShown({.hasFindResult = true}),
              (CardsShown{.options = true, .findResult = true}));
}

TEST(CardsShown, OfTwoResultsTheSortIsShown) {
    EXPECT_EQ(cardsShown({.hasSortResult = true, .hasFindResult = true}),
              (CardsShown{.options = true, .sortResult = true}));
}

TEST(CardsShown, AResultStaysWhileARunGoesOn) {
    EXPECT_EQ(
        cardsShown({.jobState = JobState::running, .hasProgress = true, .hasSortResult = true}),
        (CardsShown{.progress = true, .sortResult = true}));
}

TEST(CardsShown, AFindHasAPreviewOnceItHasASpecies) {
    EXPECT_FALSE(cardsShown({.appMode = AppMode::find}).preview);
    EXPECT_TRUE(cardsShown({.appMode = AppMode::find, .hasTargets = true}).preview);
    EXPECT_FALSE(cardsShown({.jobState = JobState::running}).preview);
}

TEST(Tagline, NamesTheVersionWhereThereIsOne) {
    EXPECT_EQ(tagline(""), "Bird photo organiser");
    EXPECT_EQ(tagline("1.2"), "Bird photo organiser · v1.2");
}

}  // namespace
}  // namespace ornivo::app
