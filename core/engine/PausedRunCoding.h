#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/PausedRun.h"

namespace ornivo {

/// A record as the text of its file: JSON, pretty-printed, keys sorted, in UTF-8. Bytes that are
/// not UTF-8 become U+FFFD.
std::string encoded(const PausedRun& record);

/// The record in a file's text, of whatever version. Absent unless every key that must be there
/// is, and every one that is has the right type.
std::optional<PausedRun> decodedPausedRun(std::string_view text);

}  // namespace ornivo
