#include "platform/ImageProperties.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Exiv2Images.h"

namespace ornivo {
namespace {

using nlohmann::json;

/// Longer lists are tables of picture data or a maker's own notes, no properties.
constexpr std::size_t longestList = 64;

std::string validText(std::string_view text) {
    const std::size_t end = std::min(text.find('\0'), text.size());
    const std::unique_ptr<gchar, decltype(&g_free)> valid(
        g_utf8_make_valid(text.data(), static_cast<gssize>(end)), g_free);
    return valid.get();
}

json number(const std::integral auto& value) {
    return value;
}

json number(const std::floating_point auto& value) {
    return std::isfinite(value) ? json(value) : json();
}

template <typename T>
json number(const std::pair<T, T>& fraction) {
    if (fraction.second == 0) return {};
    return static_cast<double>(fraction.first) / static_cast<double>(fraction.second);
}

template <typename T>
bool appendNumbers(const Exiv2::Value& value, std::vector<json>& numbers) {
    const auto* typed = dynamic_cast<const Exiv2::ValueType<T>*>(&value);
    if (!typed) return false;
    for (const T& element : typed->value_) numbers.push_back(number(element));
    return true;
}

/// The numbers of a value, null for a fraction without a denominator; empty when it holds none, or
/// bytes of no stated meaning.
std::vector<json> numbersOf(const Exiv2::Value& value) {
    std::vector<json> numbers;
    if (static_cast<std::size_t>(value.count()) > longestList) return numbers;
    if (value.typeId() == Exiv2::unsignedByte || value.typeId() == Exiv2::signedByte) {
        for (long i = 0; i < static_cast<long>(value.count()); ++i) {
            numbers.push_back(value.toRational(i).first);
        }
        return numbers;
    }
    appendNumbers<std::uint16_t>(value, numbers) || appendNumbers<std::int16_t>(value, numbers) ||
        appendNumbers<std::uint32_t>(value, numbers) ||
        appendNumbers<std::int32_t>(value, numbers) ||
        appendNumbers<Exiv2::URational>(value, numbers) ||
        appendNumbers<Exiv2::Rational>(value, numbers) || appendNumbers<float>(value, numbers) ||
        appendNumbers<double>(value, numbers);
    return numbers;
}

/// Text, a number or a list of numbers; null when the value is none of these.
json propertyOf(const Exiv2::Value& value) {
    if (value.typeId() == Exiv2::asciiString) return validText(value.toString());
    std::vector<json> numbers = numbersOf(value);
    if (numbers.empty() || std::ranges::any_of(numbers, &json::is_null)) return {};
    return numbers.size() == 1 ? std::move(numbers.front()) : json(std::move(numbers));
}

/// Degrees from degrees, minutes and seconds, of which the finer may be missing or unknown; null
/// for a negative part, which no valid file has, since the hemisphere stands elsewhere.
json degreesOf(const Exiv2::Value& value) {
    constexpr std::size_t most = 3;
    const std::vector<json> parts = numbersOf(value);
    if (parts.empty() || parts.front().is_null()) return {};
    double degrees = 0;
    double unit = 1;
    for (std::size_t i = 0; i < std::min(parts.size(), most); ++i, unit /= 60) {
        const double part = parts[i].is_null() ? 0 : parts[i].get<double>();
        if (part < 0) return {};
        degrees += part * unit;
    }
    return degrees;
}

json gpsPropertyOf(const std::string& key, const Exiv2::Value& value) {
    const bool isAngle = key == property::gpsLatitude || key == property::gpsLongitude;
    const bool isText = value.typeId() == Exiv2::asciiString;
    return isAngle && !isText ? degreesOf(value) : propertyOf(value);
}

struct Group {
    /// As Exiv2 calls it.
    std::string_view tags;
    const char* name;
    /// What its keys begin with, and its properties don't.
    std::string_view prefix;
};

constexpr std::array groups{Group{"Photo", property::exifGroup, ""},
                            Group{"Image", property::tiffGroup, ""},
                            Group{"GPSInfo", property::gpsGroup, "GPS"}};

void addProperty(const Exiv2::Exifdatum& datum, json& properties) {
    const auto group = std::ranges::find(groups, datum.groupName(), &Group::tags);
    if (group == groups.end()) return;
    std::string key = datum.tagName();
    if (key.starts_with(group->prefix)) key.erase(0, group->prefix.size());
    const bool isGps = group->name == std::string_view(property::gpsGroup);
    json value = isGps ? gpsPropertyOf(key, datum.value()) : propertyOf(datum.value());
    if (!value.is_null()) properties[group->name].emplace(key, std::move(value));
}

/// RAW files based on TIFF may have these among the first directory's tags alone.
void completeExifGroup(json& properties) {
    const auto tiff = properties.find(property::tiffGroup);
    if (tiff == properties.end()) return;
    const json first = *tiff;
    for (const char* key : {property::exifDateTimeOriginal, property::exifIsoSpeedRatings}) {
        const auto found = first.find(key);
        if (found != first.end()) properties[property::exifGroup].emplace(key, *found);
    }
}

json propertiesOf(const Exiv2::ExifData& exif) {
    json properties = json::object();
    for (const auto& datum : exif) addProperty(datum, properties);
    completeExifGroup(properties);
    if (const auto tiff = properties.find(property::tiffGroup); tiff != properties.end()) {
        const auto orientation = tiff->find(property::orientation);
        if (orientation != tiff->end()) properties[property::orientation] = *orientation;
    }
    return properties;
}

}  // namespace

std::optional<ImageProperties> readImageProperties(const std::filesystem::path& file) {
    const auto image = readExiv2Image(file);
    if (!image) return std::nullopt;
    try {
        return propertiesOf(image->exifData());
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

}  // namespace ornivo
