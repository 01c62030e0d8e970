#include "cli/ExitCode.h"

namespace ornivo::cli {

ExitCode exitCodeOfRun(const StopReason& reason, int errors) {
    switch (reason.kind()) {
        case StopReason::Kind::userCancelled:
            return ExitCode::stopped;
        case StopReason::Kind::diskFull:
            return ExitCode::diskFull;
        case StopReason::Kind::fatalError:
            return ExitCode::someFailed;
        case StopReason::Kind::completed:
            break;
    }
    return errors > 0 ? ExitCode::someFailed : ExitCode::done;
}

}  // namespace ornivo::cli
