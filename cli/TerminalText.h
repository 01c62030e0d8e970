#pragma once

#include <string>
#include <string_view>

/// Text as a terminal shows it. File names are bytes that anyone may have chosen.
namespace ornivo::cli {

/// The text safe to show: bytes that are no UTF-8 and characters that would act on the terminal
/// instead of standing in it (line feeds, escapes, changes of writing direction) come as U+FFFD.
std::string printable(std::string_view text);

/// The columns that a printable text takes up; a wide character takes two.
int columnsOf(std::string_view text);

/// A printable text cut in its middle, as in "IMG…42.jpg", to at most so many columns.
std::string fitted(std::string_view text, int columns);

}  // namespace ornivo::cli
