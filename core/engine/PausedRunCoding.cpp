#include "engine/PausedRunCoding.h"

#include <charconv>
#include <nlohmann/json.hpp>
#include <utility>

#include "engine/Numbers.h"

namespace ornivo {
namespace {

using nlohmann::json;
namespace chrono = std::chrono;

constexpr std::string_view dateShape = "0000-00-00T00:00:00Z";

std::string isoText(chrono::sys_seconds instant) {
    const auto midnight = chrono::floor<chrono::days>(instant);
    const chrono::year_month_day day(midnight);
    const chrono::hh_mm_ss time(instant - midnight);
    return paddedText(int{day.year()}, 4) + "-" +
           paddedText(static_cast<int>(unsigned{day.month()}), 2) + "-" +
           paddedText(static_cast<int>(unsigned{day.day()}), 2) + "T" +
           paddedText(static_cast<int>(time.hours().count()), 2) + ":" +
           paddedText(static_cast<int>(time.minutes().count()), 2) + ":" +
           paddedText(static_cast<int>(time.seconds().count()), 2) + "Z";
}

bool hasDateShape(std::string_view text) {
    if (text.size() != dateShape.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (dateShape[i] == '0' ? !isDigit : text[i] != dateShape[i]) return false;
    }
    return true;
}

std::optional<chrono::sys_seconds> instant(std::string_view text) {
    if (!hasDateShape(text)) return std::nullopt;
    const auto number = [&](std::size_t from, std::size_t length) {
        unsigned value = 0;
        std::from_chars(text.data() + from, text.data() + from + length, value);
        return value;
    };
    const chrono::year_month_day day(chrono::year(static_cast<int>(number(0, 4))),
                                     chrono::month(number(5, 2)), chrono::day(number(8, 2)));
    const chrono::hours hours(number(11, 2));
    const chrono::minutes minutes(number(14, 2));
    const chrono::seconds seconds(number(17, 2));
    if (!day.ok() || hours.count() > 23 || minutes.count() > 59 || seconds.count() > 59) {
        return std::nullopt;
    }
    return chrono::sys_days(day) + hours + minutes + seconds;
}

// Each takes over a JSON value of the right type and answers whether it was.

bool takeOver(const json& value, std::string& field) {
    if (!value.is_string()) return false;
    field = value.get_ref<const std::string&>();
    return true;
}

bool takeOver(const json& value, bool& field) {
    if (!value.is_boolean()) return false;
    field = value.get<bool>();
    return true;
}

bool takeOver(const json& value, double& field) {
    if (!value.is_number()) return false;
    field = value.get<double>();
    return true;
}

bool takeOver(const json& value, int& field) {
    if (!value.is_number_integer()) return false;
    const bool fits = value.is_number_unsigned() ? std::in_range<int>(value.get<std::uint64_t>())
                                                 : std::in_range<int>(value.get<std::int64_t>());
    if (fits) field = value.get<int>();
    return fits;
}

bool takeOver(const json& value, std::vector<std::string>& field) {
    if (!value.is_array()) return false;
    field.clear();
    for (const json& element : value) {
        if (!takeOver(element, field.emplace_back())) return false;
    }
    return true;
}

bool takeOver(const json& value, chrono::sys_seconds& field) {
    if (!value.is_string()) return false;
    const auto date = instant(value.get_ref<const std::string&>());
    if (date) field = *date;
    return date.has_value();
}

bool takeOver(const json& value, PausedRun::Reason& field) {
    if (!value.is_string()) return false;
    const auto reason = fromRawValue<PausedRun::Reason>(value.get_ref<const std::string&>());
    if (reason) field = *reason;
    return reason.has_value();
}

/// Takes over the value under a key that must be there.
template <typename Field>
bool required(const json& object, const char* key, Field& field) {
    const auto found = object.find(key);
    return found != object.end() && takeOver(*found, field);
}

/// Takes over the value under a key that may be left out, or hold null.
template <typename Field>
bool optional(const json& object, const char* key, std::optional<Field>& field) {
    const auto found = object.find(key);
    if (found == object.end() || found->is_null()) return true;
    return takeOver(*found, field.emplace());
}

}  // namespace

std::string encoded(const PausedRun& record) {
    json object{
        {"version", record.version},
        {"pausedAt", isoText(record.pausedAt)},
        {"reason", rawValue(record.reason)},
        {"sourcePaths", record.sourcePaths},
        {"destination", record.destination},
        {"mode", record.mode},
        {"gate", record.gate},
        {"burstInheritance", record.burstInheritance},
        {"copyMode", record.copyMode},
        {"rename", record.rename},
        {"dateSubfolders", record.dateSubfolders},
        {"totalPhotos", record.totalPhotos},
        {"stoppedAtIndex", record.stoppedAtIndex},
        {"sortedSoFar", record.sortedSoFar},
        {"uncertainSoFar", record.uncertainSoFar},
    };
    if (record.callLevel) object["callLevel"] = *record.callLevel;
    if (record.assumedLocation) object["assumedLocation"] = *record.assumedLocation;
    return object.dump(2, ' ', false, json::error_handler_t::replace);
}

std::optional<PausedRun> decodedPausedRun(std::string_view text) {
    const json object = json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (!object.is_object()) return std::nullopt;
    PausedRun record;
    const bool whole = required(object, "version", record.version) &&
                       required(object, "pausedAt", record.pausedAt) &&
                       required(object, "reason", record.reason) &&
                       required(object, "sourcePaths", record.sourcePaths) &&
                       required(object, "destination", record.destination) &&
                       required(object, "mode", record.mode) &&
                       required(object, "gate", record.gate) &&
                       optional(object, "callLevel", record.callLevel) &&
                       optional(object, "assumedLocation", record.assumedLocation) &&
                       required(object, "burstInheritance", record.burstInheritance) &&
                       required(object, "copyMode", record.copyMode) &&
                       required(object, "rename", record.rename) &&
                       required(object, "dateSubfolders", record.dateSubfolders) &&
                       required(object, "totalPhotos", record.totalPhotos) &&
                       required(object, "stoppedAtIndex", record.stoppedAtIndex) &&
                       required(object, "sortedSoFar", record.sortedSoFar) &&
                       required(object, "uncertainSoFar", record.uncertainSoFar);
    return whole ? std::optional(std::move(record)) : std::nullopt;
}

}  // namespace ornivo
