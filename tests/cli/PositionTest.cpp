#include "cli/Position.h"

#include <gtest/gtest.h>

#include <string>

#include "cli/UsageError.h"

namespace ornivo::cli {

namespace {

std::string refusalOf(const std::string& text) {
    try {
        parsePosition(text);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "read";
}

}  // namespace

TEST(Position, LatitudeAndLongitudeAreReadInDegrees) {
    struct Row {
        const char* text;
        double latitude;
        double longitude;
    };
    for (const Row row : {Row{"51.5,-0.12", 51.5, -0.12}, Row{"-33.9,151.2", -33.9, 151.2},
                          Row{"0,0", 0, 0}, Row{"90,180", 90, 180}, Row{"-90,-180", -90, -180}}) {
        EXPECT_EQ(parsePosition(row.text), PhotoLocation::make(row.latitude, row.longitude));
    }
}

TEST(Position, WhatIsNoPairOfNumbersIsRefusedInASentence) {
    for (const std::string text : {"", ",", "51.5", "51.5,", ",0.12", "51.5;0.12", "51.5, -0.12",
                                   " 51.5,-0.12", "51.5,-0.12 ", "51,5,-0,12", "51.5,-0.12,3",
                                   "north,east", "51.5N,0.12W", "0x1,0x2", "1e1,2"}) {
        EXPECT_EQ(refusalOf(text),
                  "--at takes a latitude and a longitude in degrees, as in 51.5,-0.12; \"" + text +
                      "\" is not that.");
    }
}

TEST(Position, APlaceOffTheEarthIsRefusedInASentence) {
    for (const std::string text : {"90.1,0", "-90.1,0", "0,180.1", "0,-180.1", "nan,0", "0,inf"}) {
        EXPECT_EQ(refusalOf(text),
                  "\"" + text +
                      "\" is no place on the Earth: latitudes go from -90 to 90, longitudes from "
                      "-180 to 180.");
    }
}

}  // namespace ornivo::cli
