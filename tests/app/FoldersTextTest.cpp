#include "app/presentation/FoldersText.h"

#include <gtest/gtest.h>

#include "app/presentation/RecentFolder.h"

namespace ornivo::app {
namespace {

using Tone = TonedText::Tone;

struct StatusRow {
    SourceState state;
    TonedText status;
};

class SourceStatus : public ::testing::TestWithParam<StatusRow> {};

TEST_P(SourceStatus, TakesTheFirstCaseThatHolds) {
    EXPECT_EQ(sourceStatus(GetParam().state, "en_GB"), GetParam().status)
        << sourceStatus(GetParam().state, "en_GB").text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SourceStatus,
    ::testing::Values(
        StatusRow{{}, {}},
        StatusRow{{.isScanning = true, .refusal = "No.", .found = 3}, {"Scanning…", Tone::Subtext}},
        StatusRow{{.refusal = "No.", .found = 3}, {"No.", Tone::Warn}},
        StatusRow{{.found = 0}, {"No photos found", Tone::Warn}},
        StatusRow{{.found = 1}, {"1 photos found (including subfolders)", Tone::Accent}},
        StatusRow{{.found = 12345}, {"12,345 photos found (including subfolders)", Tone::Accent}}));

TEST(SourceStatusNumbers, AreGroupedAsTheUserReadsThem) {
    EXPECT_EQ(sourceStatus({.found = 12345}, "de_DE").text,
              "12.345 photos found (including subfolders)");
}

TEST(SpaceAdvice, IsTheForecastInTheColourOfItsVerdict) {
    using Verdict = SpaceEstimate::Verdict;
    const std::pair<Verdict, Tone> rows[] = {{Verdict::clones, Tone::Accent},
                                             {Verdict::fits, Tone::Subtext},
                                             {Verdict::tight, Tone::Warn},
                                             {Verdict::doesNotFit, Tone::Error}};
    for (const auto& [verdict, tone] : rows) {
        const SpaceEstimate estimate{.photographBytes = 5'000'000'000,
                                     .requiredBytes = 5'000'000'000,
                                     .availableBytes = 1'000'000'000,
                                     .destinationVolumeName = "Birds",
                                     .verdict = verdict};
        EXPECT_EQ(spaceAdvice(estimate, "en_GB"),
                  (TonedText{QString::fromStdString(estimate.advice("en_GB")), tone}));
    }
    EXPECT_EQ(spaceAdvice(std::nullopt), TonedText{});
}

TEST(FolderLine, IsTheWholePathOrWhatTheFolderIsFor) {
    EXPECT_EQ(folderLine(std::nullopt, sourceHint()),
              (TonedText{"Where your unsorted photos live", Tone::Subtext}));
    EXPECT_EQ(folderLine(std::nullopt, sinkHint()),
              (TonedText{"Where sorted bird folders will be created", Tone::Subtext}));
    EXPECT_EQ(folderLine("/media/card/DCIM", sourceHint()),
              (TonedText{"/media/card/DCIM", Tone::Plain}));
    EXPECT_EQ(folderLine("/media/ca\nrd/DC\tIM", sourceHint()).text, "/media/ca rd/DC IM");
}

TEST(RecentFolderButtons, KeepTheirOrderAndShowTheirLastNames) {
    EXPECT_EQ(
        recentFolders({"/media/card/DCIM", "/home/ana/Birds"}),
        (std::vector<RecentFolder>{{"DCIM", "/media/card/DCIM"}, {"Birds", "/home/ana/Birds"}}));
    EXPECT_EQ(recentFolders({"/media/two\nlines"}),
              (std::vector<RecentFolder>{{"two lines", "/media/two lines"}}));
    EXPECT_TRUE(recentFolders({}).empty());
}

}  // namespace
}  // namespace ornivo::app
