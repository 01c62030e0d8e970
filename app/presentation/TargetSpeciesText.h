#pragma once

#include <QString>
#include <cstddef>

namespace ornivo::app {

/// What stands in the field for a species while it is empty.
QString speciesFieldPlaceholder(int count);

/// The answer to whether the classifier knows a bird, of which `matches` species were found.
QString coverageLine(std::size_t matches, int count);

/// How many birds it knows at all.
QString coverageExtent(int count);

/// Whether two characters have been typed, blanks around them aside.
bool isEnoughToLookUp(const QString& typed);

}  // namespace ornivo::app
