#include "app/presentation/FooterText.h"

#include <gtest/gtest.h>

namespace ornivo::app {
namespace {

const BirdSpecies dodo{"Dodo", "Raphus cucullatus"};
const BirdSpecies nameless{"", "Raphus cucullatus"};

struct Row {
    const char* name;
    FooterState state;
    const char* status;
};

class FooterStatus : public ::testing::TestWithParam<Row> {};

TEST_P(FooterStatus, TakesTheFirstRuleThatHolds) {
    EXPECT_EQ(footerStatus(GetParam().state, "en_GB").toStdString(), GetParam().status);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, FooterStatus,
    ::testing::Values(
        Row{"Launch", {}, "Choose both folders to continue"},
        Row{"Sorting",
            {.jobState = JobState::running, .percent = 42, .hasResult = true},
            "Sorting… 42%"},
        Row{"Searching",
            {.jobState = JobState::paused, .appMode = AppMode::find, .percent = 7},
            "Searching… 7%"},
        Row{"Sorted", {.hasResult = true, .hasSink = true, .found = 3}, "Sort complete!"},
        Row{"Searched",
            {.appMode = AppMode::find, .hasResult = true, .hasSource = true, .hasSink = true},
            "Search complete!"},
        Row{"NoSpecies",
            {.appMode = AppMode::find, .hasSource = true, .hasSink = true, .found = 3},
            "Choose one or more species to search for"},
        Row{"NoSpeciesAndNoSink",
            {.appMode = AppMode::find, .hasSource = true, .found = 3},
            "Choose both folders to continue"},
        Row{"NoSpeciesAndNoSource",
            {.appMode = AppMode::find, .hasSink = true},
            "Choose both folders to continue"},
        Row{"OneUnknown",
            {.appMode = AppMode::find, .hasTargets = true, .unrecognised = {dodo}},
            "This build cannot recognise Dodo — remove it to search"},
        Row{"OneUnknownWithoutCommonName",
            {.appMode = AppMode::find, .hasTargets = true, .unrecognised = {nameless}},
            "This build cannot recognise Raphus cucullatus — remove it to search"},
        Row{"TwoUnknown",
            {.appMode = AppMode::find,
             .hasSource = true,
             .hasSink = true,
             .hasTargets = true,
             .unrecognised = {dodo, nameless},
             .found = 3},
            "2 chosen birds are not species this build knows"},
        Row{"UnknownMatterOnlyToFind",
            {.hasSink = true, .hasTargets = true, .unrecognised = {dodo}, .found = 1},
            "Ready — 1 photos"},
        Row{"Ready", {.hasSource = true, .hasSink = true, .found = 5060}, "Ready — 5,060 photos"},
        Row{"ReadyToFind",
            {.appMode = AppMode::find,
             .hasSource = true,
             .hasSink = true,
             .hasTargets = true,
             .found = 5060},
            "Ready — 5,060 photos"},
        Row{"NothingFound", {.hasSink = true, .found = 0}, "Choose both folders to continue"},
        Row{"NoSink", {.hasSource = true, .found = 9}, "Choose both folders to continue"}),
    [](const auto& row) { return row.param.name; });

TEST(PrimaryLabel, SaysWhatIsDoneOrCanBe) {
    struct {
        JobState jobState;
        AppMode mode;
        const char* label;
    } const rows[] = {{JobState::running, AppMode::find, "Searching…"},
                      {JobState::paused, AppMode::find, "Searching…"},
                      {JobState::running, AppMode::sort, "Sorting…"},
                      {JobState::paused, AppMode::sort, "Sorting…"},
                      {JobState::idle, AppMode::find, "Find Species"},
                      {JobState::idle, AppMode::sort, "Sort Photos"}};
    for (const auto& row : rows) {
        EXPECT_EQ(primaryLabel(row.jobState, row.mode, "Sort Photos"), row.label);
    }
}

}  // namespace
}  // namespace ornivo::app
