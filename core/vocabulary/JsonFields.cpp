#include "vocabulary/JsonFields.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace ornivo {
namespace {

using nlohmann::json;

[[noreturn]] void fail(const std::string& path, const char* expected) {
    throw DecodingError("'" + path + "' is not " + expected);
}

// Each takes over a JSON value of the right type.

void takeOver(const json& value, const std::string& path, std::string& field) {
    if (!value.is_string()) fail(path, "text");
    field = value.get_ref<const std::string&>();
}

void takeOver(const json& value, const std::string& path, bool& field) {
    if (!value.is_boolean()) fail(path, "true or false");
    field = value.get<bool>();
}

void takeOver(const json& value, const std::string& path, double& field) {
    if (!value.is_number()) fail(path, "a number");
    field = value.get<double>();
}

bool fitsInt(const json& value) {
    if (value.is_number_unsigned()) return std::in_range<int>(value.get<std::uint64_t>());
    return value.is_number_integer() && std::in_range<int>(value.get<std::int64_t>());
}

void takeOver(const json& value, const std::string& path, int& field) {
    if (!fitsInt(value)) fail(path, "a whole number");
    field = value.get<int>();
}

template <typename Element>
void takeOver(const json& value, const std::string& path, std::vector<Element>& field) {
    if (!value.is_array()) fail(path, "a list");
    field.reserve(value.size());
    for (std::size_t i = 0; i < value.size(); ++i) {
        takeOver(value[i], path + "[" + std::to_string(i) + "]", field.emplace_back());
    }
}

void takeOver(const json& value, const std::string& path, std::map<std::string, int>& field) {
    if (!value.is_object()) fail(path, "an object");
    for (const auto& [key, element] : value.items()) {
        takeOver(element, path + "." + key, field[key]);
    }
}

}  // namespace

json parsedJson(std::string_view text) {
    try {
        return json::parse(text);
    } catch (const json::parse_error& error) {
        throw DecodingError("not JSON: byte " + std::to_string(error.byte));
    }
}

JsonFields::JsonFields(const json& value, std::string path)
    : value_(&value), path_(std::move(path)) {
    if (!value.is_object()) fail(path_.empty() ? "the whole" : path_, "an object");
}

template <typename Field>
Field JsonFields::required(const char* key) const {
    Field field{};
    takeOver(member(key), pathOf(key), field);
    return field;
}

template <typename Field>
std::optional<Field> JsonFields::optional(const char* key) const {
    const auto found = value_->find(key);
    if (found == value_->end() || found->is_null()) return std::nullopt;
    return required<Field>(key);
}

JsonFields JsonFields::object(const char* key) const {
    return JsonFields(member(key), pathOf(key));
}

std::vector<JsonFields> JsonFields::objects(const char* key) const {
    const json& list = member(key);
    if (!list.is_array()) fail(pathOf(key), "a list");
    std::vector<JsonFields> objects;
    objects.reserve(list.size());
    for (std::size_t i = 0; i < list.size(); ++i) {
        objects.emplace_back(list[i], pathOf(key) + "[" + std::to_string(i) + "]");
    }
    return objects;
}

const json& JsonFields::member(const char* key) const {
    const auto found = value_->find(key);
    if (found == value_->end()) throw DecodingError("'" + pathOf(key) + "' is missing");
    return *found;
}

std::string JsonFields::pathOf(const char* key) const {
    return path_.empty() ? key : path_ + "." + key;
}

template std::string JsonFields::required(const char*) const;
template bool JsonFields::required(const char*) const;
template int JsonFields::required(const char*) const;
template double JsonFields::required(const char*) const;
template std::vector<std::string> JsonFields::required(const char*) const;
template std::vector<double> JsonFields::required(const char*) const;
template std::map<std::string, int> JsonFields::required(const char*) const;
template std::optional<std::string> JsonFields::optional(const char*) const;
template std::optional<std::vector<std::string>> JsonFields::optional(const char*) const;

}  // namespace ornivo
