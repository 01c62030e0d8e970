#include "media/PhotoDate.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "media/ImageDecoder.h"
#include "platform/Text.h"

namespace ornivo::PhotoDate {
namespace {

/// The value under `key` in a group; null when there is no such group or no such value.
const ImageProperties* valueIn(const ImageProperties& properties, const char* group,
                               const char* key) {
    const auto found = properties.find(group);
    if (found == properties.end() || !found->is_object()) return nullptr;
    const auto value = found->find(key);
    return value == found->end() ? nullptr : &*value;
}

/// The capture text, "YYYY:MM:DD HH:MM:SS", as its characters; none when it is missing or no text.
std::vector<std::string_view> captureText(const ImageProperties& properties) {
    const ImageProperties* value =
        valueIn(properties, property::exifGroup, property::exifDateTimeOriginal);
    if (!value) value = valueIn(properties, property::tiffGroup, property::tiffDateTime);
    if (!value || !value->is_string()) return {};
    return characters(value->get_ref<const std::string&>());
}

std::string slice(const std::vector<std::string_view>& text, std::size_t begin,
                  std::size_t length) {
    std::string result;
    for (std::size_t i = begin; i < begin + length; ++i) result += text[i];
    return result;
}

/// A decimal number with or without a sign, and nothing else.
std::optional<std::int64_t> wholeNumber(std::string_view text) {
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, number);
    if (failure != std::errc() || stop != end) return std::nullopt;
    return number;
}

/// One part of the capture text, and the values it may have; without a range, any.
struct Field {
    std::size_t begin;
    std::size_t length;
    std::int64_t least;
    std::int64_t greatest;
};

constexpr std::int64_t anyYear = 9999;
constexpr std::array fields{
    Field{0, 4, -anyYear, anyYear},  // year
    Field{5, 2, 1, 12},              // month
    Field{8, 2, 1, 31},              // day
    Field{11, 2, 0, 23},             // hour
    Field{14, 2, 0, 59},             // minute
    Field{17, 2, 0, 60},             // second, with room for a leap second
};

/// Days from 1970-01-01 in the Gregorian calendar, reckoned through eras of 400 years that begin
/// in March, so that a leap day ends its year.
std::int64_t daysFromCivil(std::int64_t year, std::int64_t month, std::int64_t day) {
    constexpr std::int64_t yearsInEra = 400;
    constexpr std::int64_t daysInEra = 146097;
    constexpr std::int64_t daysToEpoch = 719468;
    const std::int64_t marchYear = month <= 2 ? year - 1 : year;
    const std::int64_t era =
        (marchYear >= 0 ? marchYear : marchYear - (yearsInEra - 1)) / yearsInEra;
    const std::int64_t yearOfEra = marchYear - era * yearsInEra;
    const std::int64_t monthFromMarch = month > 2 ? month - 3 : month + 9;
    const std::int64_t dayOfYear = (153 * monthFromMarch + 2) / 5 + day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * daysInEra + dayOfEra - daysToEpoch;
}

/// "yyyy-MM-dd" in the system's time zone; absent for a time beyond every calendar.
std::optional<std::string> day(std::time_t time) {
    std::tm parts{};
    if (!localtime_r(&time, &parts)) return std::nullopt;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04lld-%02d-%02d", 1900LL + parts.tm_year,
                  parts.tm_mon + 1, parts.tm_mday);
    return text.data();
}

}  // namespace

std::optional<std::string> dateString(const ImageProperties& properties) {
    const auto text = captureText(properties);
    if (text.size() < 10) return std::nullopt;
    return slice(text, 0, 4) + '-' + slice(text, 5, 2) + '-' + slice(text, 8, 2);
}

std::optional<std::int64_t> captureSecond(const ImageProperties& properties) {
    const auto text = captureText(properties);
    if (text.size() < 19) return std::nullopt;

    std::array<std::int64_t, fields.size()> values{};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const Field& field = fields[i];
        const auto number = wholeNumber(slice(text, field.begin, field.length));
        if (!number || *number < field.least || *number > field.greatest) return std::nullopt;
        values[i] = *number;
    }
    const auto [year, month, dayOfMonth, hour, minute, second] = values;
    return daysFromCivil(year, month, dayOfMonth) * 86400 + hour * 3600 + minute * 60 + second;
}

std::string string(const PhotoMetadata& metadata, const std::filesystem::path& url,
                   const Files& files, std::time_t now) {
    if (metadata.captureDate) return *metadata.captureDate;
    const auto changed = files.modificationTime(url);
    const auto lastChange = changed ? day(*changed) : std::nullopt;
    return lastChange ? *lastChange : day(now).value_or("");
}

std::string string(const std::filesystem::path& url, const Files& files, std::time_t now) {
    PhotoMetadata metadata;
    if (const auto properties = ImageDecoder::properties(url)) {
        metadata.captureDate = dateString(*properties);
    }
    return string(metadata, url, files, now);
}

}  // namespace ornivo::PhotoDate
