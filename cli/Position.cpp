#include "cli/Position.h"

#include <string>

#include "cli/Numbers.h"
#include "cli/UsageError.h"

namespace ornivo::cli {

PhotoLocation parsePosition(std::string_view text) {
    const std::string quoted = "\"" + std::string(text) + "\"";
    const auto comma = text.find(',');
    const auto latitude = parseDecimal(text.substr(0, comma));
    const auto longitude =
        comma == std::string_view::npos ? std::nullopt : parseDecimal(text.substr(comma + 1));
    if (!latitude || !longitude) {
        throw UsageError("--at takes a latitude and a longitude in degrees, as in 51.5,-0.12; " +
                         quoted + " is not that.");
    }
    const auto location = PhotoLocation::make(*latitude, *longitude);
    if (!location) {
        throw UsageError(quoted +
                         " is no place on the Earth: latitudes go from -90 to 90, longitudes from "
                         "-180 to 180.");
    }
    return *location;
}

}  // namespace ornivo::cli
