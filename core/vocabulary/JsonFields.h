#pragma once

#include <cstdint>
#include <map>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Error.h"

namespace ornivo {

/// A JSON text does not hold what its reader needs. The words say where and why.
class DecodingError : public Error {
public:
    explicit DecodingError(const std::string& reason) : Error("DecodingError", 1, reason) {}
};

/// Parses a JSON text. Raises `DecodingError`.
nlohmann::json parsedJson(std::string_view text);

/// Reads the members of a JSON object strictly: a required member must be there, an optional one
/// may be missing or null, and either must have the type asked for. Members nobody asks for are
/// ignored. Every failure raises `DecodingError` with the member's path.
class JsonFields {
public:
    /// `value` must be an object and outlive the reader; `path` says where it stands, for the words
    /// of a failure.
    explicit JsonFields(const nlohmann::json& value, std::string path = {});

    /// The types to ask for are std::string, bool, int, double, lists of texts and of numbers, and
    /// maps from text to int.
    template <typename Field>
    Field required(const char* key) const;

    template <typename Field>
    std::optional<Field> optional(const char* key) const;

    /// A member that is an object.
    JsonFields object(const char* key) const;
    /// A member that is a list of objects.
    std::vector<JsonFields> objects(const char* key) const;

private:
    const nlohmann::json& member(const char* key) const;
    std::string pathOf(const char* key) const;

    const nlohmann::json* value_;
    std::string path_;
};

}  // namespace ornivo
