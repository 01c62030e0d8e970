#include "cli/AssumedPlace.h"

#include <gtest/gtest.h>

#include "cli/UsageError.h"
#include "identification/PlaceGazetteer.h"
#include "identification/RangeTable.h"

namespace ornivo::cli {

TEST(AssumedPlace, ARegionIsFoundByItsIdAndStandsForItsMiddle) {
    const auto region = RangeTable::loadBundled().regions().front();
    const AssumedPlace place = resolveAssumedPlace(region.id);
    EXPECT_EQ(place.location, region.representativePoint());
    EXPECT_EQ(place.note, "Using " + region.name + ".");
}

TEST(AssumedPlace, ATypedPlaceStandsForTheMiddleOfItsRegion) {
    const auto kerala = PlaceGazetteer::bundled()->match("Kerala").value();
    const auto region = RangeTable::loadBundled().region(kerala.regionID).value();
    const AssumedPlace place = resolveAssumedPlace("  kerala ");
    EXPECT_EQ(place.location, region.representativePoint());
    EXPECT_EQ(place.note, "Kerala → " + region.name + ".");
}

TEST(AssumedPlace, APlaceNobodyKnowsIsRefusedInASentence) {
    try {
        resolveAssumedPlace(" Nowhereville ");
        FAIL();
    } catch (const UsageError& error) {
        EXPECT_STREQ(error.what(),
                     "Couldn't place “Nowhereville”. Try a state, country or major city.");
    }
}

}  // namespace ornivo::cli
