#include "cli/Screen.h"

#include <regex>

#include "platform/Text.h"

namespace ornivo::testing {

namespace {

std::string withoutColours(const std::string& text) {
    return std::regex_replace(text, std::regex("\x1b\\[[0-9;]*m"), "");
}

}  // namespace

std::vector<std::string> screenOf(const std::string& sent) {
    const std::string clearToEnd = "\x1b[K";
    std::vector<std::vector<std::string>> lines(1);
    std::size_t column = 0;
    std::string text = withoutColours(sent);
    // Line ends come as a return and a line feed, which read as one character.
    for (std::size_t at = 0; at < text.size();) {
        if (text.compare(at, clearToEnd.size(), clearToEnd) == 0) {
            lines.back().resize(std::min(column, lines.back().size()));
            at += clearToEnd.size();
            continue;
        }
        const std::string character(characters(std::string_view(text).substr(at)).front());
        at += character.size();
        if (character == "\r") {
            column = 0;
        } else if (character == "\r\n" || character == "\n") {
            lines.emplace_back();
            column = 0;
        } else {
            lines.back().resize(std::max(lines.back().size(), column + 1), " ");
            lines.back()[column++] = character;
        }
    }
    std::vector<std::string> shown;
    for (const auto& line : lines) {
        shown.emplace_back();
        for (const auto& character : line) shown.back() += character;
    }
    while (!shown.empty() && shown.back().empty()) shown.pop_back();
    return shown;
}

std::vector<std::string> drawingsIn(const std::string& sent) {
    const std::regex drawing("\r([^\r\n]*)\x1b\\[K");
    const std::string text = withoutColours(sent);
    std::vector<std::string> found;
    for (auto match = std::sregex_iterator(text.begin(), text.end(), drawing);
         match != std::sregex_iterator(); ++match) {
        if (!(*match)[1].str().empty()) found.push_back((*match)[1].str());
    }
    return found;
}

}  // namespace ornivo::testing
