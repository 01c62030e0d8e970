#include "cli/ExitCode.h"

#include <gtest/gtest.h>

namespace ornivo::cli {

TEST(ExitCode, HowARunEndedCountsBeforeWhatFailedInIt) {
    struct Row {
        StopReason reason;
        int errors;
        ExitCode code;
    };
    for (const Row& row : {
             Row{StopReason::completed(), 0, ExitCode::done},
             Row{StopReason::completed(), 1, ExitCode::someFailed},
             Row{StopReason::userCancelled(), 0, ExitCode::stopped},
             Row{StopReason::userCancelled(), 3, ExitCode::stopped},
             Row{StopReason::diskFull(), 0, ExitCode::diskFull},
             Row{StopReason::diskFull(), 3, ExitCode::diskFull},
             Row{StopReason::fatalError("gone"), 0, ExitCode::someFailed},
         }) {
        EXPECT_EQ(exitCodeOfRun(row.reason, row.errors), row.code);
    }
}

TEST(ExitCode, TheShellSeesTheNumbersThatAreDocumented) {
    EXPECT_EQ(static_cast<int>(ExitCode::done), 0);
    EXPECT_EQ(static_cast<int>(ExitCode::someFailed), 1);
    EXPECT_EQ(static_cast<int>(ExitCode::wrongUsage), 2);
    EXPECT_EQ(static_cast<int>(ExitCode::stopped), 3);
    EXPECT_EQ(static_cast<int>(ExitCode::diskFull), 4);
}

}  // namespace ornivo::cli
