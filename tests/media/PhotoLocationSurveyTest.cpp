#include "media/PhotoLocationSurvey.h"

#include <gtest/gtest.h>

namespace ornivo {
namespace {

TEST(PhotoLocationSurvey, WithoutATotalEveryFileWasLookedAt) {
    EXPECT_EQ(PhotoLocationSurvey(7, 2), PhotoLocationSurvey(7, 2, 7));
    EXPECT_EQ(PhotoLocationSurvey(), PhotoLocationSurvey(0, 0, 0));
}

TEST(PhotoLocationSurvey, EqualityComparesEveryField) {
    const PhotoLocationSurvey survey(7, 2, 9);
    EXPECT_NE(survey, PhotoLocationSurvey(8, 2, 9));
    EXPECT_NE(survey, PhotoLocationSurvey(7, 3, 9));
    EXPECT_NE(survey, PhotoLocationSurvey(7, 2, 8));
}

TEST(PhotoLocationSurvey, FoundNoneAsksForAFileLookedAt) {
    EXPECT_TRUE(PhotoLocationSurvey(1, 0).foundNone());
    EXPECT_FALSE(PhotoLocationSurvey(1, 1).foundNone());
    EXPECT_FALSE(PhotoLocationSurvey(0, 0, 5).foundNone());
}

TEST(PhotoLocationSurvey, IsPartialWhereFilesWereLeftOut) {
    EXPECT_TRUE(PhotoLocationSurvey(60, 0, 61).isPartial());
    EXPECT_FALSE(PhotoLocationSurvey(60, 0, 60).isPartial());
}

}  // namespace
}  // namespace ornivo
