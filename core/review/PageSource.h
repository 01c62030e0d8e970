#pragma once

#include <string_view>

/// The files of core/review/page, as the build puts them into the library. What stands in double
/// braces in them is filled in for each page.
namespace ornivo::ReviewPage {

extern const std::string_view pageMarkup;
extern const std::string_view pageStyle;
extern const std::string_view pageScript;

}  // namespace ornivo::ReviewPage
