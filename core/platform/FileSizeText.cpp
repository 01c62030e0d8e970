#include "platform/FileSizeText.h"

#include <unicode/measunit.h>
#include <unicode/numberformatter.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace ornivo {
namespace {

namespace number = icu::number;

struct Unit {
    icu::MeasureUnit (*unit)();
    double bytes;
    int decimals;
    UNumberUnitWidth width;
};

constexpr std::array units{
    Unit{icu::MeasureUnit::getByte, 1, 0, UNUM_UNIT_WIDTH_FULL_NAME},
    Unit{icu::MeasureUnit::getKilobyte, 1e3, 0, UNUM_UNIT_WIDTH_SHORT},
    Unit{icu::MeasureUnit::getMegabyte, 1e6, 1, UNUM_UNIT_WIDTH_SHORT},
    Unit{icu::MeasureUnit::getGigabyte, 1e9, 2, UNUM_UNIT_WIDTH_SHORT},
    Unit{icu::MeasureUnit::getTerabyte, 1e12, 2, UNUM_UNIT_WIDTH_SHORT},
    Unit{icu::MeasureUnit::getPetabyte, 1e15, 2, UNUM_UNIT_WIDTH_SHORT},
};

/// The smallest unit in which the size, rounded, takes no more than three digits before the point.
const Unit& unitFor(double bytes) {
    constexpr double fourDigits = 1000;
    const auto suits = [&](const Unit& unit) {
        const double step = std::pow(10, unit.decimals);
        return std::round(bytes / unit.bytes * step) / step < fourDigits;
    };
    const auto found = std::ranges::find_if(units, suits);
    return found == units.end() ? units.back() : *found;
}

}  // namespace

std::string fileSizeText(std::int64_t bytes, const std::string& locale) {
    const auto size = static_cast<double>(bytes);
    const Unit& unit = unitFor(size);
    const icu::Locale place =
        locale.empty() ? icu::Locale::getDefault() : icu::Locale::createFromName(locale.c_str());
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString text = number::NumberFormatter::withLocale(place)
                                        .unit(unit.unit())
                                        .unitWidth(unit.width)
                                        .precision(number::Precision::maxFraction(unit.decimals))
                                        .roundingMode(UNUM_ROUND_HALFUP)
                                        .formatDouble(size / unit.bytes, status)
                                        .toString(status);
    if (U_FAILURE(status)) return std::to_string(bytes) + " bytes";
    std::string result;
    return text.toUTF8String(result);
}

}  // namespace ornivo
