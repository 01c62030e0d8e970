#pragma once

#include <chrono>
#include <string>

namespace ornivo {

/// A moment by a Unicode date pattern: "d MMMM yyyy, HH:mm" gives "8 May 2026, 07:05" in "en_GB".
/// Without a locale ("de_DE") or a time zone ("Europe/London"), the user's.
std::string dateText(std::chrono::sys_seconds moment, const std::string& pattern,
                     const std::string& locale = {}, const std::string& timeZone = {});

}  // namespace ornivo
