#include "app/presentation/RunNotice.h"

#include <gtest/gtest.h>

namespace ornivo::app {
namespace {

SortResult sorted(const StopReason& reason) {
    SortResult result;
    result.sorted = 12;
    result.unidentified = 3;
    result.processed = 10;
    result.total = 50;
    result.stopReason = reason;
    result.stopped = reason != StopReason::completed();
    return result;
}

FindResult found(const StopReason& reason) {
    FindResult result;
    result.matched = 1;
    result.processed = 10;
    result.total = 50;
    result.stopReason = reason;
    result.stopped = reason != StopReason::completed();
    return result;
}

TEST(RunNotice, TellsWhatARunFound) {
    EXPECT_EQ(noticeOf(sorted(StopReason::completed()), "/Birds"),
              (RunNotice{"Sort complete!",
                         "✓ 12 photos sorted into bird folders\n? 3 moved to _Uncertain/"}));
    EXPECT_EQ(noticeOf(found(StopReason::completed()), "/Birds"),
              (RunNotice{"Search complete!", "✓ 1 photos matched and copied"}));
}

TEST(RunNotice, TellsWhereARunStopped) {
    const RunNotice byUser{"Sort stopped", "Stopped at photo 10 of 50"};
    EXPECT_EQ(noticeOf(sorted(StopReason::userCancelled()), "/Birds"), byUser);
    EXPECT_EQ(noticeOf(found(StopReason::userCancelled()), "/Birds").title, "Search stopped");
}

TEST(RunNotice, NamesTheDiskThatIsFull) {
    EXPECT_EQ(noticeOf(sorted(StopReason::diskFull()), "/media/Birds").body,
              "Stopped at photo 10 of 50 — Birds is full");
    EXPECT_EQ(noticeOf(sorted(StopReason::diskFull()), "/media/100%1").body,
              "Stopped at photo 10 of 50 — 100%1 is full");
    EXPECT_EQ(noticeOf(found(StopReason::diskFull()), std::nullopt).body,
              "Stopped at photo 10 of 50 — The destination is full");
}

}  // namespace
}  // namespace ornivo::app
