#include "credits/Credits.h"

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>

#include "platform/GroupedNumber.h"
#include "platform/Resources.h"
#include "platform/Text.h"
#include "vocabulary/JsonFields.h"

namespace ornivo::Credits {
namespace {

Source decodedSource(const JsonFields& fields) {
    return {
        .id = fields.required<std::string>("id"),
        .name = fields.required<std::string>("name"),
        .holder = fields.required<std::string>("holder"),
        .url = fields.required<std::string>("url"),
        .images = fields.required<int>("images"),
        .licenses = fields.required<std::map<std::string, int>>("licenses"),
    };
}

Component decodedComponent(const JsonFields& fields) {
    return {
        .name = fields.required<std::string>("name"),
        .role = fields.required<std::string>("role"),
        .holder = fields.required<std::string>("holder"),
        .license = fields.required<std::string>("license"),
        .citation = fields.required<std::string>("citation"),
        .url = fields.required<std::string>("url"),
    };
}

template <typename Decode>
auto decodedList(const std::vector<JsonFields>& objects, Decode decode) {
    std::vector<decltype(decode(objects.front()))> list;
    std::ranges::transform(objects, std::back_inserter(list), decode);
    return list;
}

Training decodedTraining(const JsonFields& fields) {
    return {
        .imagesTotal = fields.required<int>("images_total"),
        .sources = decodedList(fields.objects("sources"), decodedSource),
        .note = fields.required<std::string>("note"),
    };
}

Citation decodedCitation(const JsonFields& fields) {
    return {
        .doi = fields.required<std::string>("doi"),
        .text = fields.required<std::string>("text"),
    };
}

template <typename List>
const List& memberOrNone(List Payload::*member) {
    static const List none;
    return payload() ? (*payload()).*member : none;
}

}  // namespace

std::optional<std::string> Source::summary(const std::string& locale) const {
    if (images < 1) return std::nullopt;
    std::string words =
        groupedNumber(images, locale) + (images == 1 ? " photograph" : " photographs");
    std::string separator = " · ";
    for (const auto& [license, count] : licenses) {
        words += separator + license;
        separator = ", ";
    }
    return words;
}

bool Citation::hasDOI() const {
    return !trimmed(doi).empty();
}

std::optional<Payload> fromJson(std::string_view bytes) try {
    const auto json = parsedJson(bytes);
    const JsonFields fields(json);
    return Payload{
        .version = fields.required<int>("version"),
        .generated = fields.required<std::string>("generated"),
        .rosterStatus = fields.required<std::string>("roster_status"),
        .training = decodedTraining(fields.object("training")),
        .gbifCitation = decodedCitation(fields.object("gbif_citation")),
        .components = decodedList(fields.objects("components"), decodedComponent),
        .photographers = fields.required<std::vector<std::string>>("photographers"),
    };
} catch (const DecodingError&) {
    return std::nullopt;
}

bool rosterIsComplete(const std::optional<Payload>& credits) {
    return credits && credits->rosterStatus == "complete" && !credits->photographers.empty();
}

std::vector<std::string> outstandingObligations(const std::optional<Payload>& credits) {
    if (!credits) return {"credits.json is missing from the bundle."};
    std::vector<std::string> owed;
    if (!rosterIsComplete(credits)) {
        owed.emplace_back(
            "Photographer roster not folded in — run build_credits.py with the dataset drive "
            "mounted.");
    }
    if (!credits->gbifCitation.hasDOI()) {
        owed.emplace_back(
            "No GBIF derived-dataset DOI — register the pull and set it in build_credits.py.");
    }
    return owed;
}

const std::optional<Payload>& payload() {
    static const std::optional<Payload> credits = [] {
        const auto bytes = Resources::read("credits", "json");
        return bytes ? fromJson(*bytes) : std::nullopt;
    }();
    return credits;
}

bool rosterIsComplete() {
    static const bool isComplete = rosterIsComplete(payload());
    return isComplete;
}

const std::vector<std::string>& outstandingObligations() {
    static const std::vector<std::string> owed = outstandingObligations(payload());
    return owed;
}

const std::vector<Source>& sources() {
    static const std::vector<Source> none;
    return payload() ? payload()->training.sources : none;
}

const std::vector<Component>& components() {
    return memberOrNone(&Payload::components);
}

const std::vector<std::string>& photographers() {
    return memberOrNone(&Payload::photographers);
}

}  // namespace ornivo::Credits
