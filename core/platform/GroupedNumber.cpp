#include "platform/GroupedNumber.h"

#include <unicode/numfmt.h>

#include <memory>

namespace ornivo {

std::string groupedNumber(std::int64_t number, const std::string& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale place =
        locale.empty() ? icu::Locale::getDefault() : icu::Locale::createFromName(locale.c_str());
    const std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createInstance(place, status));
    if (U_FAILURE(status)) return std::to_string(number);
    icu::UnicodeString text;
    std::string result;
    return format->format(number, text).toUTF8String(result);
}

}  // namespace ornivo
