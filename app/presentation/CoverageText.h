#pragma once

#include <QString>
#include <cstddef>

#include "app/presentation/Mark.h"

namespace ornivo::app {

/// The answer to whether the classifier knows a bird, of which `matches` species were found.
QString coverageLine(std::size_t matches, int count);

/// What stands before that answer.
Mark coverageMark(std::size_t matches);

/// How many birds it knows at all.
QString coverageExtent(int count);

/// Whether two characters have been typed, blanks around them aside.
bool isEnoughToLookUp(const QString& typed);

}  // namespace ornivo::app
