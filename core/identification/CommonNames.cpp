#include "identification/CommonNames.h"

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

namespace ornivo::BirdClassifierLabels {

CommonNames readCommonNames(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();  // unlike other ways of reading, raises nothing when the disk fails
    const auto json = nlohmann::json::parse(text.str(), nullptr, false);
    const bool isTable =
        json.is_object() && std::ranges::all_of(json, [](const auto& v) { return v.is_string(); });
    return isTable ? json.get<CommonNames>() : CommonNames();
}

}  // namespace ornivo::BirdClassifierLabels
