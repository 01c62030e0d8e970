#include "vocabulary/RawValues.h"

#include <gtest/gtest.h>

#include "vocabulary/AppMode.h"
#include "vocabulary/BurstInheritance.h"
#include "vocabulary/CopyMode.h"

namespace ornivo {

TEST(RawValues, BurstInheritanceListsItsCasesInOrderUnderTheirTexts) {
    const auto cases = allCases<BurstInheritance>();
    ASSERT_EQ(cases.size(), 3u);
    EXPECT_EQ(rawValue(cases[0]), "off");
    EXPECT_EQ(rawValue(cases[1]), "confirmedOnly");
    EXPECT_EQ(rawValue(cases[2]), "confirmedAndCorrected");
    EXPECT_EQ(cases[0], BurstInheritance::off);
    EXPECT_EQ(cases[1], BurstInheritance::confirmedOnly);
    EXPECT_EQ(cases[2], BurstInheritance::confirmedAndCorrected);
}

TEST(RawValues, EveryCaseIsReadBackFromItsText) {
    for (const auto value : allCases<BurstInheritance>()) {
        EXPECT_EQ(fromRawValue<BurstInheritance>(rawValue(value)), value);
    }
    for (const auto value : allCases<CopyMode>()) {
        EXPECT_EQ(fromRawValue<CopyMode>(rawValue(value)), value);
    }
    for (const auto value : allCases<AppMode>()) {
        EXPECT_EQ(fromRawValue<AppMode>(rawValue(value)), value);
    }
}

TEST(RawValues, ATextThatIsNoneOfThemYieldsNothing) {
    EXPECT_EQ(fromRawValue<BurstInheritance>("Off"), std::nullopt);
    EXPECT_EQ(fromRawValue<BurstInheritance>(""), std::nullopt);
    EXPECT_EQ(fromRawValue<CopyMode>("trashOriginal"), std::nullopt);
}

TEST(RawValues, RemovingTheSourceIsStoredAsDelete) {
    EXPECT_EQ(rawValue(CopyMode::keep), "keep");
    EXPECT_EQ(rawValue(CopyMode::trashOriginal), "delete");
}

}  // namespace ornivo
