#pragma once

#include <filesystem>

namespace ornivo::testing {

/// The folder in which the trash of this test program keeps the files: a temporary one, so that
/// the user's own trash stays out of it. Naming it anywhere in a program is enough: the trash is
/// private before the first test begins. Missing until something has been trashed.
const std::filesystem::path& privateTrash();

}  // namespace ornivo::testing
