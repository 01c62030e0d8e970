#pragma once

#include "cli/Console.h"
#include "cli/RunManner.h"
#include "cli/RunScope.h"
#include "vocabulary/SortOptions.h"

/// A run that moves originals to the Trash asks before it does.
namespace ornivo::cli {

/// Raises `UsageError` where there is something to ask and nobody to answer.
void requireConsentToBePossible(const SortOptions& options, const RunManner& manner,
                                const Console& console);

/// Whether the run may go ahead; asks if there is something to ask. Says so when nothing is done.
bool consents(const RunScope& scope, const SortOptions& options, const RunManner& manner,
              Console& console);

}  // namespace ornivo::cli
