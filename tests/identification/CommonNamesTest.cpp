#include "identification/CommonNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace ornivo::BirdClassifierLabels {
namespace {

using ornivo::testing::TempFolder;
using ornivo::testing::writeFile;
using ::testing::IsEmpty;

CommonNames parsed(std::string_view json) {
    const TempFolder folder;
    return readCommonNames(writeFile(folder / "names.json", json));
}

TEST(CommonNames, HoldsEveryMemberOfTheFile) {
    const CommonNames expected{{"Bubo_scandiacus", "Snowy Owl"}, {"Pica_pica", "Eurasian Magpie"}};
    EXPECT_EQ(parsed(R"({"Pica_pica": "Eurasian Magpie", "Bubo_scandiacus": "Snowy Owl"})"),
              expected);
}

TEST(CommonNames, AnEmptyObjectIsAnEmptyTable) {
    EXPECT_THAT(parsed("{}"), IsEmpty());
}

TEST(CommonNames, OneMemberThatIsNoTextEmptiesTheTable) {
    for (const char* const value : {"1", "null", "true", "[]", "{}"}) {
        EXPECT_THAT(parsed(std::string(R"({"Pica_pica": "Magpie", "Bubo_bubo": )") + value + "}"),
                    IsEmpty())
            << value;
    }
}

TEST(CommonNames, AFileThatIsNoObjectGivesAnEmptyTable) {
    for (const char* const json : {"", "[]", "\"text\"", "[\"Pica_pica\"]", "{\"a\": \"b\"",
                                   "{\"a\": \"b\"} trailing", "{\"a\": \"\xff\"}"}) {
        EXPECT_THAT(parsed(json), IsEmpty()) << json;
    }
}

TEST(CommonNames, AMissingOrUnreadableFileGivesAnEmptyTable) {
    const TempFolder folder;
    EXPECT_THAT(readCommonNames(folder / "missing.json"), IsEmpty());
    EXPECT_THAT(readCommonNames(folder.path()), IsEmpty());
}

}  // namespace
}  // namespace ornivo::BirdClassifierLabels
