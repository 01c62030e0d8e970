#pragma once

#include <QString>
#include <vector>

#include "app/presentation/Choice.h"
#include "vocabulary/BurstInheritance.h"

namespace ornivo::app {

/// What identifies the birds.
QString modelNote(bool isModelBundled);

/// How decisions come from the review page to the program.
QString reviewNote();

/// The ways of treating bursts, in the order of the enumeration.
std::vector<Choice> burstChoices();
QString burstExplanation(BurstInheritance inheritance);
/// Whether the explanation is a warning.
bool burstInheritanceIsExperimental(BurstInheritance inheritance);

/// What naming a region does. `count` is how many species the classifier knows.
QString regionExplanation(bool isRegionNamed, int count);

}  // namespace ornivo::app
