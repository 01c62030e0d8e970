#include "vocabulary/JsonFields.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace ornivo {
namespace {

template <typename Read>
std::string failureOf(std::string_view text, Read read) {
    try {
        const auto json = parsedJson(text);
        read(JsonFields(json));
    } catch (const DecodingError& error) {
        return error.localizedDescription();
    }
    return "none";
}

std::string failureOfInt(std::string_view text) {
    return failureOf(text, [](const JsonFields& fields) { fields.required<int>("n"); });
}

}  // namespace

TEST(JsonFields, MembersOfTheRightTypesAreRead) {
    const auto json = parsedJson(
        R"({"t": "x", "b": true, "n": 7, "d": 1, "l": ["a"], "v": [1, 2.5], "m": {"k": 3}})");
    const JsonFields fields(json);
    EXPECT_EQ(fields.required<std::string>("t"), "x");
    EXPECT_TRUE(fields.required<bool>("b"));
    EXPECT_EQ(fields.required<int>("n"), 7);
    EXPECT_EQ(fields.required<double>("d"), 1.0);
    EXPECT_EQ(fields.required<std::vector<std::string>>("l"), std::vector<std::string>{"a"});
    EXPECT_EQ(fields.required<std::vector<double>>("v"), (std::vector<double>{1, 2.5}));
    EXPECT_EQ((fields.required<std::map<std::string, int>>("m")),
              (std::map<std::string, int>{{"k", 3}}));
}

TEST(JsonFields, AMissingMemberIsNamed) {
    EXPECT_EQ(failureOfInt("{}"), "'n' is missing");
}

TEST(JsonFields, AMemberOfAnotherTypeIsNamedWithWhatItShouldBe) {
    for (const auto* text : {R"({"n": "7"})", R"({"n": 7.5})", R"({"n": true})", R"({"n": null})",
                             R"({"n": 4294967296})", R"({"n": -4294967296})"}) {
        EXPECT_EQ(failureOfInt(text), "'n' is not a whole number") << text;
    }
}

TEST(JsonFields, AnOptionalMemberMayBeMissingOrNullButNotOfAnotherType) {
    const auto read = [](const JsonFields& fields) { fields.optional<std::string>("t"); };
    EXPECT_EQ(failureOf("{}", read), "none");
    EXPECT_EQ(failureOf(R"({"t": null})", read), "none");
    EXPECT_EQ(failureOf(R"({"t": 1})", read), "'t' is not text");
}

TEST(JsonFields, AFailureInsideAListSaysWhere) {
    const auto read = [](const JsonFields& fields) {
        for (const auto& element : fields.objects("list")) {
            element.required<std::vector<double>>("v");
        }
    };
    EXPECT_EQ(failureOf(R"({"list": [{"v": [1]}, {"v": [1, "2"]}]})", read),
              "'list[1].v[1]' is not a number");
    EXPECT_EQ(failureOf(R"({"list": [5]})", read), "'list[0]' is not an object");
}

TEST(JsonFields, TextThatIsNoJsonAndATopThatIsNoObjectFail) {
    EXPECT_EQ(failureOfInt("{\"n\": 1"), "not JSON: byte 8");
    EXPECT_EQ(failureOfInt("[1]"), "'the whole' is not an object");
}

}  // namespace ornivo
