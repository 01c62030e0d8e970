#pragma once

#include <QString>

#include "app/presentation/Mark.h"

namespace ornivo::app {

/// What stands in the field for a species while it is empty.
QString speciesFieldPlaceholder(int count);

/// What stands before a chosen species.
Mark speciesMark(bool isKnown);

}  // namespace ornivo::app
