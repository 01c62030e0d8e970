#include "cli/Screen.h"

#include <algorithm>
#include <string_view>

#include "platform/Text.h"

namespace ornivo::testing {

namespace {

constexpr std::string_view escape = "\x1b[";
constexpr std::string_view clearToEnd = "\x1b[K";

std::string withoutColours(std::string text) {
    for (auto at = text.find(escape); at != std::string::npos; at = text.find(escape, at)) {
        const auto end = text.find_first_not_of("0123456789;", at + escape.size());
        if (end != std::string::npos && text[end] == 'm') {
            text.erase(at, end + 1 - at);
        } else {
            at += escape.size();
        }
    }
    return text;
}

/// The first of the text's characters; looks no further than it has to.
std::string_view firstCharacter(std::string_view text) {
    constexpr std::size_t longest = 64;
    return characters(text.substr(0, longest)).front();
}

/// One line of a terminal, with the place where the next character goes.
class Line {
public:
    void put(std::string_view character) {
        cells_.resize(std::max(cells_.size(), column_ + 1), " ");
        cells_[column_++] = character;
    }

    void returnToStart() { column_ = 0; }
    void clear() { cells_.resize(std::min(column_, cells_.size())); }

    std::string text() const {
        std::string text;
        for (const auto& cell : cells_) text += cell;
        return text;
    }

private:
    std::vector<std::string> cells_;
    std::size_t column_ = 0;
};

}  // namespace

std::vector<std::string> screenOf(const std::string& sent) {
    std::vector<Line> lines(1);
    const std::string plain = withoutColours(sent);
    for (std::string_view text = plain; !text.empty();) {
        if (text.starts_with(clearToEnd)) {
            lines.back().clear();
            text.remove_prefix(clearToEnd.size());
            continue;
        }
        // A return and a line feed, as a terminal gets them at a line's end, are one character.
        const std::string_view character = firstCharacter(text);
        text.remove_prefix(character.size());
        if (character == "\r") {
            lines.back().returnToStart();
        } else if (character.ends_with('\n')) {
            lines.emplace_back();
        } else {
            lines.back().put(character);
        }
    }
    std::vector<std::string> shown;
    for (const auto& line : lines) shown.push_back(line.text());
    while (!shown.empty() && shown.back().empty()) shown.pop_back();
    return shown;
}

std::vector<std::string> drawingsIn(const std::string& sent) {
    std::vector<std::string> found;
    const std::string text = withoutColours(sent);
    for (auto start = text.find('\r'); start != std::string::npos;
         start = text.find('\r', start + 1)) {
        const auto end = text.find_first_of("\r\n\x1b", start + 1);
        if (end == std::string::npos || text.compare(end, clearToEnd.size(), clearToEnd) != 0) {
            continue;
        }
        if (end > start + 1) found.push_back(text.substr(start + 1, end - start - 1));
    }
    return found;
}

}  // namespace ornivo::testing
