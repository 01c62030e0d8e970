#include "engine/PausedRunCoding.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <random>

namespace ornivo {
namespace {

using nlohmann::json;

const std::string wholeText = R"({
  "assumedLocation": "51.5,-0.12",
  "burstInheritance": "confirmedAndCorrected",
  "callLevel": "probable",
  "copyMode": "delete",
  "dateSubfolders": false,
  "destination": "/home/me/Birds",
  "gate": 0.6,
  "mode": "find",
  "pausedAt": "2024-05-17T06:07:08Z",
  "reason": "diskFull",
  "rename": true,
  "sortedSoFar": 3,
  "sourcePaths": [
    "/card/IMG_1.jpg",
    "/card/IMG \"2\".jpg"
  ],
  "stoppedAtIndex": 4,
  "totalPhotos": 10,
  "uncertainSoFar": 1,
  "version": 1
})";

PausedRun whole() {
    PausedRun record;
    record.pausedAt = std::chrono::sys_days(std::chrono::year(2024) / 5 / 17) +
                      std::chrono::hours(6) + std::chrono::minutes(7) + std::chrono::seconds(8);
    record.sourcePaths = {"/card/IMG_1.jpg", "/card/IMG \"2\".jpg"};
    record.destination = "/home/me/Birds";
    record.mode = "find";
    record.gate = 0.6;
    record.callLevel = "probable";
    record.assumedLocation = "51.5,-0.12";
    record.burstInheritance = "confirmedAndCorrected";
    record.copyMode = "delete";
    record.rename = true;
    record.totalPhotos = 10;
    record.stoppedAtIndex = 4;
    record.sortedSoFar = 3;
    record.uncertainSoFar = 1;
    return record;
}

/// The whole record with one key changed.
std::optional<PausedRun> decodedWith(const std::string& key, const json& value) {
    json object = json::parse(wholeText);
    object[key] = value;
    return decodedPausedRun(object.dump());
}

std::optional<PausedRun> decodedWithout(const std::string& key) {
    json object = json::parse(wholeText);
    object.erase(key);
    return decodedPausedRun(object.dump());
}

TEST(PausedRunCoding, ARecordIsPrettyPrintedWithItsKeysSorted) {
    EXPECT_EQ(encoded(whole()), wholeText);
}

TEST(PausedRunCoding, ARecordReadsBackTheSame) {
    EXPECT_EQ(decodedPausedRun(wholeText), whole());
    EXPECT_EQ(decodedPausedRun(encoded(PausedRun())), PausedRun());
}

TEST(PausedRunCoding, AbsentValuesAreLeftOut) {
    PausedRun record = whole();
    record.callLevel.reset();
    record.assumedLocation.reset();
    const json object = json::parse(encoded(record));
    EXPECT_FALSE(object.contains("callLevel"));
    EXPECT_FALSE(object.contains("assumedLocation"));
    EXPECT_EQ(decodedPausedRun(encoded(record)), record);
}

TEST(PausedRunCoding, ARecordWithoutTheOptionalKeysReadsWithBothAbsent) {
    for (const char* key : {"callLevel", "assumedLocation"}) {
        EXPECT_TRUE(decodedWithout(key)) << key;
        EXPECT_TRUE(decodedWith(key, nullptr)) << key;
    }
    EXPECT_EQ(decodedWithout("callLevel")->callLevel, std::nullopt);
    EXPECT_EQ(decodedWith("assumedLocation", nullptr)->assumedLocation, std::nullopt);
}

TEST(PausedRunCoding, EveryOtherKeyMustBeThere) {
    int keys = 0;
    const json object = json::parse(wholeText);
    for (const auto& [key, value] : object.items()) {
        if (key == "callLevel" || key == "assumedLocation") continue;
        EXPECT_EQ(decodedWithout(key), std::nullopt) << key;
        ++keys;
    }
    EXPECT_EQ(keys, 15);
}

TEST(PausedRunCoding, EveryValueMustHaveItsType) {
    const json object = json::parse(wholeText);
    for (const auto& [key, value] : object.items()) {
        for (const json& other : {json("text"), json(7), json(7.5), json(true), json::array({1}),
                                  json::object(), json(nullptr)}) {
            const bool isOfItsType = other.type() == value.type() ||
                                     (key == "gate" && other.is_number()) ||
                                     (value.is_number_unsigned() && other.is_number_integer());
            const bool mayBeNull = key == "callLevel" || key == "assumedLocation";
            if (isOfItsType || (other.is_null() && mayBeNull)) continue;
            EXPECT_EQ(decodedWith(key, other), std::nullopt) << key << " as " << other;
        }
    }
    EXPECT_EQ(decodedWith("sourcePaths", {"a", 1}), std::nullopt);
}

TEST(PausedRunCoding, WholeNumbersMustBeWholeAndFit) {
    for (const char* key :
         {"version", "totalPhotos", "stoppedAtIndex", "sortedSoFar", "uncertainSoFar"}) {
        EXPECT_EQ(decodedWith(key, 1.0), std::nullopt) << key;
        EXPECT_EQ(decodedWith(key, 4294967296), std::nullopt) << key;
        EXPECT_EQ(decodedWith(key, 18446744073709551615U), std::nullopt) << key;
        EXPECT_TRUE(decodedWith(key, 2147483647)) << key;
        EXPECT_TRUE(decodedWith(key, -1)) << key;
    }
    EXPECT_EQ(decodedWith("gate", 1)->gate, 1.0);
}

TEST(PausedRunCoding, AReasonMustBeOneOfTheTwo) {
    EXPECT_EQ(decodedWith("reason", "userCancelled")->reason, PausedRun::Reason::userCancelled);
    EXPECT_EQ(decodedWith("reason", "diskFull")->reason, PausedRun::Reason::diskFull);
    EXPECT_EQ(decodedWith("reason", "powerCut"), std::nullopt);
    EXPECT_EQ(decodedWith("reason", "diskfull"), std::nullopt);
}

TEST(PausedRunCoding, ADateMustBeAMomentInUTC) {
    EXPECT_TRUE(decodedWith("pausedAt", "2024-02-29T23:59:59Z"));
    for (const char* date :
         {"", "2024-05-17", "2024-05-17T06:07:08", "2024-05-17T06:07:08+02:00",
          "2024-05-17T06:07:08.5Z", "2024-05-17 06:07:08Z", "2024-13-17T06:07:08Z",
          "2023-02-29T06:07:08Z", "2024-05-00T06:07:08Z", "2024-05-17T24:00:00Z",
          "2024-05-17T06:60:08Z", "2024-05-17T06:07:60Z", "2024-05-17T06:07:08ZZ",
          "-024-05-17T06:07:08Z", "2024-05-17T 6:07:08Z"}) {
        EXPECT_EQ(decodedWith("pausedAt", date), std::nullopt) << date;
    }
}

TEST(PausedRunCoding, WhatIsNoJSONObjectIsNoRecord) {
    for (const std::string& text :
         {std::string(), std::string("{"), std::string("[]"), std::string("null"),
          std::string("\xff\xfe"), std::string(wholeText).substr(0, wholeText.size() - 1),
          wholeText + "}", std::string(100000, '['), std::string("{\"version\": \"\xff\"}")}) {
        EXPECT_EQ(decodedPausedRun(text), std::nullopt) << text.substr(0, 40);
    }
}

TEST(PausedRunCoding, NoDamageToAFileDoesMoreThanMakeItNoRecord) {
    std::mt19937 random(20240517);
    int read = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string text = wholeText;
        for (auto left = 1 + random() % 3; left > 0; --left) {
            const std::size_t at = random() % text.size();
            switch (random() % 3) {
                case 0:
                    text[at] = static_cast<char>(random() % 256);
                    break;
                case 1:
                    text.erase(at, 1 + random() % 8);
                    break;
                default:
                    text.insert(at, wholeText, random() % wholeText.size(), random() % 40);
            }
        }
        const auto record = decodedPausedRun(text);
        if (!record) continue;
        ++read;
        ASSERT_EQ(decodedPausedRun(encoded(*record)), record) << text;
    }
    EXPECT_GT(read, 100);
    EXPECT_LT(read, 15000);
}

TEST(PausedRunCoding, KeysThatItDoesNotKnowAreNoFailure) {
    EXPECT_EQ(decodedWith("note", "hello"), whole());
}

TEST(PausedRunCoding, NamesThatAreNotUTF8AreWrittenWithReplacements) {
    PausedRun record = whole();
    record.sourcePaths = {"/card/caf\xe9.jpg"};
    record.destination = "/home/\xff";
    const auto decoded = decodedPausedRun(encoded(record));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->sourcePaths, (std::vector<std::string>{"/card/caf\uFFFD.jpg"}));
    EXPECT_EQ(decoded->destination, "/home/\uFFFD");
}

}  // namespace
}  // namespace ornivo
