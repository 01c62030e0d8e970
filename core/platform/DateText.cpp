#include "platform/DateText.h"

#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

namespace ornivo {

std::string dateText(std::chrono::sys_seconds moment, const std::string& pattern,
                     const std::string& locale, const std::string& timeZone) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale place =
        locale.empty() ? icu::Locale::getDefault() : icu::Locale::createFromName(locale.c_str());
    icu::SimpleDateFormat format(icu::UnicodeString::fromUTF8(pattern), place, status);
    if (U_FAILURE(status)) return {};
    if (!timeZone.empty()) {
        format.adoptTimeZone(icu::TimeZone::createTimeZone(timeZone.c_str()));
    }
    const UDate milliseconds = static_cast<UDate>(moment.time_since_epoch().count()) * 1000;
    icu::UnicodeString text;
    std::string result;
    return format.format(milliseconds, text).toUTF8String(result);
}

}  // namespace ornivo
