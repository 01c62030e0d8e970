#pragma once

#include <string>
#include <string_view>

namespace ornivo {

/// A species or a day as the name of one folder, which can't lead anywhere else: "/" becomes "_",
/// and so do the dots of "." and "..". Every other text is taken as it stands.
std::string folderName(std::string_view text);

}  // namespace ornivo
