#include "app/StartArguments.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace ornivo::app {
namespace {

using ornivo::testing::TempFolder;
namespace fs = std::filesystem;

class Start : public ::testing::Test {
protected:
    std::optional<StartArguments> read(const std::vector<std::string>& words) {
        std::vector<const char*> argv{"ornivo"};
        for (const std::string& word : words) argv.push_back(word.c_str());
        return readArguments(static_cast<int>(argv.size()), argv.data(), refusal_);
    }

    TempFolder home_;
    StartRefusal refusal_;
};

TEST_F(Start, WithNothingOpensTheWindow) {
    EXPECT_EQ(read({}), StartArguments());
}

TEST_F(Start, TakesASourceAndADestination) {
    fs::create_directories(home_ / "a/b");
    fs::create_directories(home_ / "no UTF-8 \xFF");
    EXPECT_EQ(read({(home_ / "a").string()}), (StartArguments{{home_ / "a"}, false}));
    EXPECT_EQ(read({home_ / "a/b/../", home_ / "no UTF-8 \xFF"}),
              (StartArguments{{home_ / "a", home_ / "no UTF-8 \xFF"}, false}));
}

TEST_F(Start, MayEndOnceShown) {
    EXPECT_EQ(read({"--exit-when-shown"}), (StartArguments{{}, true}));
}

TEST_F(Start, HelpAndVersionAreAnswers) {
    EXPECT_EQ(read({"--version"}), std::nullopt);
    EXPECT_EQ(refusal_.text, "ornivo 0.1.0\n");
    EXPECT_EQ(refusal_.status, 0);
    EXPECT_EQ(read({"--help"}), std::nullopt);
    EXPECT_EQ(refusal_.status, 0);
    EXPECT_NE(refusal_.text.find("FOLDER"), std::string::npos);
    EXPECT_EQ(refusal_.text.find("--exit-when-shown"), std::string::npos);
}

TEST_F(Start, WhatItCantDoIsRefused) {
    for (const auto& words : std::vector<std::vector<std::string>>{
             {"--nonsense"}, {home_ / "missing"}, {home_.path(), home_.path(), home_.path()}}) {
        EXPECT_EQ(read(words), std::nullopt) << words.front();
        EXPECT_EQ(refusal_.status, 2);
        EXPECT_FALSE(refusal_.text.empty());
    }
}

}  // namespace
}  // namespace ornivo::app
