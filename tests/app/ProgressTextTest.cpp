#include "app/presentation/ProgressText.h"

#include <gtest/gtest.h>

#include "app/presentation/TonedLines.h"

namespace ornivo::app {
namespace {

using Tone = TonedText::Tone;
using Lines = std::vector<TonedText>;

TEST(ProgressText, TellsOfASortUnderWay) {
    EXPECT_EQ(progressText({3, 8, "IMG_4104.JPG", {}, 0}, AppMode::sort, JobState::running),
              (ProgressText{"Sorting in Progress", "Pause", 0.375, "3 of 8 photos processed", "38%",
                            "IMG_4104.JPG"}));
}

TEST(ProgressText, TellsOfASearchThatPauses) {
    EXPECT_EQ(progressText({1, 3, "", {}, 0}, AppMode::find, JobState::paused),
              (ProgressText{"Searching in Progress", "Resume", 1.0 / 3,
                            "Paused — 1 of 3 photos processed", "33%", ""}));
}

TEST(ProgressText, OfNothingIsAnEmptyBarAndNoPercent) {
    const ProgressText text = progressText({0, 0, "", {}, 0}, AppMode::sort, JobState::running);
    EXPECT_EQ(text.fraction, 0);
    EXPECT_EQ(text.percent, "0%");
    EXPECT_EQ(text.count, "0 of 0 photos processed");
}

TEST(ProgressText, KeepsANameWithALineBreakOnOneLine) {
    const ProgressUpdate progress{1, 1, "IMG\n1.JPG", {{"Marsh\nTit", 1}}, 0};
    EXPECT_EQ(progressText(progress, AppMode::sort, JobState::running).fileName, "IMG 1.JPG");
    EXPECT_EQ(speciesLines(progress), (Lines{{"• Marsh Tit: 1", Tone::Accent}}));
}

TEST(SpeciesLines, AreTheMostFrequentFirstAndTheUncertainLast) {
    const ProgressUpdate progress{
        9, 9, "", {{"Avocet", 2}, {"Bittern", 7}, {"Curlew", 2}, {"Dunlin", 3}}, 9};
    EXPECT_EQ(speciesLines(progress), (Lines{{"• Bittern: 7", Tone::Accent},
                                             {"• Dunlin: 3", Tone::Accent},
                                             {"• Avocet: 2", Tone::Accent},
                                             {"• Curlew: 2", Tone::Accent},
                                             {"• _Uncertain: 9", Tone::Subtext}}));
}

TEST(SpeciesLines, AreNoneWhileNothingIsFound) {
    EXPECT_TRUE(speciesLines({5, 9, "a.jpg", {}, 0}).empty());
}

TEST(SpeciesLines, MayBeTheUncertainOnesAlone) {
    EXPECT_EQ(speciesLines({1, 9, "", {}, 1}), (Lines{{"• _Uncertain: 1", Tone::Subtext}}));
}

TEST(SpeciesLines, TakeANameAsItStands) {
    EXPECT_EQ(speciesLines({1, 9, "", {{"Odd %2 Bird", 4}}, 0}).front().text, "• Odd %2 Bird: 4");
}

class Lists : public ::testing::Test {
protected:
    Lists() {
        QObject::connect(&model_, &QAbstractItemModel::dataChanged,
                         [this](const QModelIndex& row) { changed_.push_back(row.row()); });
        QObject::connect(&model_, &TonedLines::countChanged, [this] { ++resized_; });
    }
    QStringList texts() const {
        QStringList texts;
        for (int row = 0; row < model_.rowCount(); ++row) {
            texts << model_.data(model_.index(row), TonedLines::textRole).toString();
        }
        return texts;
    }

    TonedLines model_;
    std::vector<int> changed_;
    int resized_ = 0;
};

TEST_F(Lists, TouchOnlyTheRowsThatChange) {
    model_.setLines({{"a", Tone::Accent}, {"b", Tone::Accent}});
    changed_.clear();
    model_.setLines({{"a", Tone::Accent}, {"c", Tone::Subtext}});
    EXPECT_EQ(changed_, std::vector{1});
    EXPECT_EQ(texts(), (QStringList{"a", "c"}));
    EXPECT_EQ(model_.data(model_.index(1), TonedLines::toneRole).toInt(), int(Tone::Subtext));
    EXPECT_EQ(resized_, 1);
}

TEST_F(Lists, GrowAndShrinkAtTheirEnd) {
    model_.setLines({{"a", Tone::Accent}});
    model_.setLines({{"a", Tone::Accent}, {"b", Tone::Accent}, {"c", Tone::Accent}});
    EXPECT_EQ(texts(), (QStringList{"a", "b", "c"}));
    model_.setLines({{"c", Tone::Accent}});
    EXPECT_EQ(texts(), QStringList{"c"});
    model_.setLines({});
    EXPECT_EQ(model_.count(), 0);
    EXPECT_EQ(resized_, 4);
}

}  // namespace
}  // namespace ornivo::app
