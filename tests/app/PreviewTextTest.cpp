#include "app/presentation/PreviewText.h"

#include <gtest/gtest.h>

namespace ornivo::app {
namespace {

using Lines = std::vector<PreviewLine>;

TEST(Preview, StandsUnderTheDestination) {
    EXPECT_EQ(previewHeading("/media/nas/Birds"), "/media/nas/Birds");
    EXPECT_EQ(previewHeading(std::nullopt), "/your/sink/folder");
}

TEST(Preview, OfASort) {
    EXPECT_EQ(sortPreview(false), (Lines{{"  ├─ ", "Painted Stork/"},
                                         {"  ├─ ", "Indian Roller/"},
                                         {"  └─ ", "_Uncertain/"}}));
}

TEST(Preview, OfASortIntoDays) {
    EXPECT_EQ(sortPreview(true), (Lines{{"  ├─ ", "Painted Stork/"},
                                        {"  │   └─ ", "2026-05-31/"},
                                        {"  ├─ ", "Indian Roller/"},
                                        {"  └─ ", "_Uncertain/"}}));
}

TEST(Preview, OfASearch) {
    EXPECT_EQ(findPreview({"Osprey", "Pandion haliaetus"}, false),
              (Lines{{"", "Osprey/"}, {"       └─ ", "matched-photo.jpg"}}));
}

TEST(Preview, OfASearchIntoDays) {
    EXPECT_EQ(findPreview({"Osprey", ""}, true), (Lines{{"", "Osprey/"},
                                                        {"       └─ ", "YYYY-MM-DD/"},
                                                        {"            └─ ", "matched-photo.jpg"}}));
}

}  // namespace
}  // namespace ornivo::app
