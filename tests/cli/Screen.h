#pragma once

#include <string>
#include <vector>

namespace ornivo::testing {

/// What a terminal shows after it has been sent a text, line by line, without colours and without
/// empty lines at the end. Knows line feeds, returns to the line's start and clearing to its end.
std::vector<std::string> screenOf(const std::string& sent);

/// The texts that were drawn over one another, without colours: what stands between two returns
/// to a line's start.
std::vector<std::string> drawingsIn(const std::string& sent);

}  // namespace ornivo::testing
