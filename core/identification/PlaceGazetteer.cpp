#include "identification/PlaceGazetteer.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "identification/EditDistance.h"
#include "platform/Resources.h"
#include "platform/Text.h"

namespace ornivo {
namespace {

using nlohmann::json;
using Place = PlaceGazetteer::Place;

/// The form in which names of places are compared: letters and numbers alone, without case and
/// accents, in words apart by one blank.
std::string normalise(std::string_view text) {
    std::string spelled;
    for (const char c : foldCaseAndDiacritics(text)) {
        if (c == '&') {
            spelled += "and";
        } else {
            spelled += c;
        }
    }
    std::string words;
    bool isBetweenWords = false;
    for (const auto character : characters(spelled)) {
        if (!isLetter(character) && !isNumber(character)) {
            isBetweenWords = true;
            continue;
        }
        if (isBetweenWords && !words.empty()) words += ' ';
        isBetweenWords = false;
        words += character;
    }
    return words;
}

bool isExactly(std::string_view form, std::string_view query) {
    return form == query;
}

bool contains(std::string_view form, std::string_view query) {
    return form.find(query) != std::string_view::npos;
}

using Test = bool (*)(std::string_view form, std::string_view query);

bool nameMeets(Test test, const Place& place, std::string_view query) {
    return test(normalise(place.name), query);
}

bool aliasMeets(Test test, const Place& place, std::string_view query) {
    return std::ranges::any_of(
        place.aliases, [&](const std::string& alias) { return test(normalise(alias), query); });
}

bool nameOrAliasMeets(Test test, const Place& place, std::string_view query) {
    return nameMeets(test, place, query) || aliasMeets(test, place, query);
}

/// The place with a name or alias nearest to the query, if one is near enough to be a slip of the
/// fingers.
std::optional<Place> nearMiss(const std::vector<Place>& places, std::string_view query) {
    const std::size_t allowed = characters(query).size() < 6 ? 1 : 2;
    std::size_t best = allowed + 1;
    const Place* nearest = nullptr;
    const auto consider = [&](const Place& place, const std::string& name) {
        const std::size_t distance = boundedEditDistance(query, normalise(name), allowed);
        if (distance >= best) return;
        best = distance;
        nearest = &place;
    };
    for (const Place& place : places) {
        consider(place, place.name);
        for (const std::string& alias : place.aliases) consider(place, alias);
    }
    return nearest ? std::optional(*nearest) : std::nullopt;
}

std::optional<std::string> text(const json& object, const char* key) {
    const auto found = object.find(key);
    if (found == object.end() || !found->is_string()) return std::nullopt;
    return found->get<std::string>();
}

std::optional<double> number(const json& object, const char* key) {
    const auto found = object.find(key);
    if (found == object.end() || !found->is_number()) return std::nullopt;
    return found->get<double>();
}

std::vector<std::string> aliases(const json& object) {
    const auto found = object.find("aliases");
    if (found == object.end() || !found->is_array()) return {};
    const bool areTexts =
        std::ranges::all_of(*found, [](const json& alias) { return alias.is_string(); });
    return areTexts ? found->get<std::vector<std::string>>() : std::vector<std::string>();
}

std::optional<Place> place(const json& object) {
    auto name = text(object, "name");
    const auto latitude = number(object, "latitude");
    const auto longitude = number(object, "longitude");
    auto regionID = text(object, "regionID");
    if (!name || !latitude || !longitude || !regionID) return std::nullopt;
    return Place{std::move(*name), aliases(object), *latitude, *longitude, std::move(*regionID)};
}

}  // namespace

std::optional<PlaceGazetteer> PlaceGazetteer::fromJson(std::string_view bytes) {
    const json top = json::parse(bytes, nullptr, /*allow_exceptions=*/false);
    if (!top.is_object()) return std::nullopt;
    const auto list = top.find("places");
    if (list == top.end() || !list->is_array()) return std::nullopt;

    std::vector<Place> places;
    for (const json& element : *list) {
        if (!element.is_object()) return std::nullopt;
        if (auto readable = place(element)) places.push_back(std::move(*readable));
    }
    if (places.empty()) return std::nullopt;
    return PlaceGazetteer(std::move(places));
}

std::optional<PlaceGazetteer> PlaceGazetteer::bundled() {
    const auto bytes = Resources::read("places", "json");
    return bytes ? fromJson(*bytes) : std::nullopt;
}

std::optional<Place> PlaceGazetteer::match(std::string_view typed) const {
    const std::string query = normalise(typed);
    if (characters(query).size() < 2) return std::nullopt;

    const auto meetsBy = [&](auto meets, Test test) {
        return [&query, meets, test](const Place& place) { return meets(test, place, query); };
    };
    const auto named = std::ranges::find_if(places_, meetsBy(nameMeets, isExactly));
    if (named != places_.end()) return *named;
    const auto known = std::ranges::find_if(places_, meetsBy(aliasMeets, isExactly));
    if (known != places_.end()) return *known;

    const auto beginsSo = meetsBy(nameOrAliasMeets, beginsWith);
    const auto first = std::ranges::find_if(places_, beginsSo);
    if (first == places_.end()) return nearMiss(places_, query);
    const bool isOnlyOne = std::find_if(first + 1, places_.end(), beginsSo) == places_.end();
    return isOnlyOne ? std::optional(*first) : std::nullopt;
}

std::vector<Place> PlaceGazetteer::suggestions(std::string_view typed, std::size_t limit) const {
    const std::string query = normalise(typed);
    if (query.empty()) return {};

    std::vector<Place> found;
    std::ranges::copy_if(places_, std::back_inserter(found), [&](const Place& place) {
        return nameOrAliasMeets(contains, place, query);
    });
    std::ranges::stable_partition(
        found, [&](const Place& place) { return nameMeets(beginsWith, place, query); });
    if (found.size() > limit) found.resize(limit);
    return found;
}

}  // namespace ornivo
