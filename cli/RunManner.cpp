#include "cli/RunManner.h"

namespace ornivo::cli {

void addRunManner(CLI::App& command, RunManner& manner) {
    const auto declare = [&](const char* name, bool& value, const char* meaning) {
        command.add_flag(name, value, meaning)->group(RunManner::helpGroup);
    };
    declare("--dry-run", manner.dryRun, "Say what would go where, write nothing");
    declare("--json", manner.json, "One JSON object a line, the totals last");
    declare("--yes", manner.yes, "Don't ask about originals");
}

}  // namespace ornivo::cli
