#include "engine/PausedRunCoding.h"

#include <charconv>
#include <nlohmann/json.hpp>
#include <utility>

#include "platform/Numbers.h"
#include "vocabulary/JsonFields.h"

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

/// The value that a text of the record stands for.
template <typename Value>
Value meant(const std::optional<Value>& value, const char* key) {
    if (!value) throw DecodingError("'" + std::string(key) + "' has no meaning");
    return *value;
}

PausedRun record(const JsonFields& fields) {
    PausedRun run;
    run.version = fields.required<int>("version");
    run.pausedAt = meant(instant(fields.required<std::string>("pausedAt")), "pausedAt");
    run.reason =
        meant(fromRawValue<PausedRun::Reason>(fields.required<std::string>("reason")), "reason");
    run.sourcePaths = fields.required<std::vector<std::string>>("sourcePaths");
    run.destination = fields.required<std::string>("destination");
    run.mode = fields.required<std::string>("mode");
    run.gate = fields.required<double>("gate");
    run.callLevel = fields.optional<std::string>("callLevel");
    run.assumedLocation = fields.optional<std::string>("assumedLocation");
    run.burstInheritance = fields.required<std::string>("burstInheritance");
    run.copyMode = fields.required<std::string>("copyMode");
    run.rename = fields.required<bool>("rename");
    run.dateSubfolders = fields.required<bool>("dateSubfolders");
    run.totalPhotos = fields.required<int>("totalPhotos");
    run.stoppedAtIndex = fields.required<int>("stoppedAtIndex");
    run.sortedSoFar = fields.required<int>("sortedSoFar");
    run.uncertainSoFar = fields.required<int>("uncertainSoFar");
    return run;
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

std::optional<PausedRun> decodedPausedRun(std::string_view text) try {
    const json object = parsedJson(text);
    return record(JsonFields(object));
} catch (const DecodingError&) {
    return std::nullopt;
}

}  // namespace ornivo
