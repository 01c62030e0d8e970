#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace ornivo::BirdClassifierLabels {

/// The common name of each species by the classifier's raw label.
using CommonNames = std::map<std::string, std::string>;

/// The names in a JSON file: one object whose members are all texts. Anything else, or no file at
/// all, gives an empty table.
CommonNames readCommonNames(const std::filesystem::path& file);

}  // namespace ornivo::BirdClassifierLabels
