#include "identification/BundleFingerprint.h"

#include <array>
#include <nlohmann/json.hpp>
#include <variant>

#include "identification/BirdClassifierLabels.h"
#include "identification/BirdIdentifier.h"
#include "identification/RangeTable.h"
#include "identification/SeasonTable.h"
#include "platform/Files.h"
#include "platform/Resources.h"
#include "platform/Sha256.h"
#include "vocabulary/JsonFields.h"

namespace ornivo::BundleFingerprint {
namespace {

using nlohmann::json;

using Member = std::variant<int Summary::*, std::string Summary::*, bool Summary::*>;

/// A field of a summary: its name in JSON, its name in a verdict, and where it lies.
struct Field {
    const char* key;
    const char* label;
    Member member;
};

const std::array fields{
    Field{"labelCount", "model labels", &Summary::labelCount},
    Field{"firstLabel", "first label", &Summary::firstLabel},
    Field{"lastLabel", "last label", &Summary::lastLabel},
    Field{"rangeRegionCount", "range regions", &Summary::rangeRegionCount},
    Field{"subcontinentLabelCount", "subcontinent labels", &Summary::subcontinentLabelCount},
    Field{"seasonMonthCount", "season months", &Summary::seasonMonthCount},
    Field{"placeCount", "places", &Summary::placeCount},
    Field{"photographerCount", "photographers", &Summary::photographerCount},
    Field{"modelPresent", "model present", &Summary::modelPresent},
};

std::string plain(int value) {
    return std::to_string(value);
}
std::string plain(const std::string& value) {
    return value;
}
std::string plain(bool value) {
    return value ? "true" : "false";
}

std::string text(const Summary& summary, const Field& field) {
    return std::visit([&](auto member) { return plain(summary.*member); }, field.member);
}

std::string sha256(std::string_view bytes) {
    Sha256 hash;
    hash.update(bytes);
    return hash.hexDigest();
}

/// The elements of a list in a resource, by the key of its top object; 0 for anything else.
int elementCount(const char* resource, const char* key) {
    const auto bytes = Resources::read(resource, "json");
    if (!bytes) return 0;
    const json top = json::parse(*bytes, nullptr, /*allow_exceptions=*/false);
    if (!top.is_object()) return 0;
    const auto list = top.find(key);
    return list != top.end() && list->is_array() ? static_cast<int>(list->size()) : 0;
}

std::pair<std::string, std::string> modelEntry() {
    const auto model = BirdIdentifier::bundledModelURL();
    if (!model) return {"model", "MISSING"};
    try {
        return {"model.weights", sha256(Files::system()->read(*model / "model.espresso.weights"))};
    } catch (const Error&) {
        return {"model", "PRESENT (weights not directly readable)"};
    }
}

}  // namespace

std::string Summary::digest() const {
    std::string joined;
    for (const Field& field : fields) {
        if (!joined.empty()) joined += '|';
        joined += text(*this, field);
    }
    return sha256(joined).substr(0, 16);
}

std::string Summary::toJson() const {
    json object;
    for (const Field& field : fields) {
        std::visit([&](auto member) { object[field.key] = this->*member; }, field.member);
    }
    return object.dump(2, ' ', false, json::error_handler_t::replace);
}

Summary Summary::fromJson(std::string_view bytes) {
    const json object = parsedJson(bytes);
    const JsonFields members(object);
    Summary summary;
    for (const Field& field : fields) {
        std::visit(
            [&](auto member) {
                using Value = std::remove_reference_t<decltype(summary.*member)>;
                summary.*member = members.required<Value>(field.key);
            },
            field.member);
    }
    return summary;
}

Summary summary() {
    Summary found;
    const auto& names = BirdClassifierLabels::commonNames();
    found.labelCount = static_cast<int>(names.size());
    if (!names.empty()) {
        found.firstLabel = names.begin()->first;
        found.lastLabel = names.rbegin()->first;
    }
    if (const auto ranges = RangeTable::bundled()) {
        found.rangeRegionCount = static_cast<int>(ranges->regions().size());
        found.subcontinentLabelCount =
            static_cast<int>(ranges->labels("indian-subcontinent").size());
    }
    if (const auto seasons = SeasonTable::bundled()) {
        found.seasonMonthCount = static_cast<int>(seasons->labelsByMonth().size());
    }
    found.placeCount = elementCount("places", "places");
    found.photographerCount = elementCount("credits", "photographers");
    found.modelPresent = BirdIdentifier::bundledModelURL().has_value();
    return found;
}

Verdict compare(const Summary& expected, const Summary& actual) {
    Verdict verdict;
    for (const Field& field : fields) {
        const std::string wanted = text(expected, field);
        const std::string found = text(actual, field);
        if (wanted == found) continue;
        verdict.differences.push_back(std::string(field.label) + ": expected " + wanted +
                                      ", found " + found);
    }
    return verdict;
}

Verdict verify(const Summary& expected) {
    return compare(expected, summary());
}

std::map<std::string, std::string> deep() {
    std::map<std::string, std::string> hashes;
    for (const char* name :
         {"bird_common_names", "range_regions", "season_months", "places", "credits"}) {
        const auto bytes = Resources::read(name, "json");
        hashes[std::string(name) + ".json"] = bytes ? sha256(*bytes) : "MISSING";
    }
    hashes.insert(modelEntry());
    return hashes;
}

}  // namespace ornivo::BundleFingerprint
