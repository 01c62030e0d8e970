#include "cli/TerminalText.h"

#include <clocale>
#include <cwchar>
#include <cwctype>
#include <vector>

namespace ornivo::cli {

namespace {

constexpr std::string_view replacement = "\uFFFD";
constexpr std::string_view ellipsis = "…";

/// Has the C library's functions for wide characters speak UTF-8 on this thread, whatever the
/// user's locale is.
class Utf8Scope {
public:
    Utf8Scope() : previous_(uselocale(utf8())) {}
    ~Utf8Scope() { uselocale(previous_); }
    Utf8Scope(const Utf8Scope&) = delete;
    Utf8Scope& operator=(const Utf8Scope&) = delete;

private:
    static locale_t utf8() {
        static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        return locale;
    }

    locale_t previous_;
};

struct Character {
    std::string_view bytes;
    /// 0 for a byte that is no UTF-8.
    wchar_t code;
};

Character firstCharacter(std::string_view text) {
    std::mbstate_t state{};
    wchar_t code = 0;
    const std::size_t length = std::mbrtowc(&code, text.data(), text.size(), &state);
    const bool valid = length > 0 && length <= text.size();
    return valid ? Character{text.substr(0, length), code} : Character{text.substr(0, 1), 0};
}

std::vector<Character> charactersOf(std::string_view text) {
    std::vector<Character> result;
    while (!text.empty()) {
        result.push_back(firstCharacter(text));
        text.remove_prefix(result.back().bytes.size());
    }
    return result;
}

bool changesDirection(wchar_t code) {
    return code == 0x061C || code == 0x200E || code == 0x200F ||
           (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

bool isSafe(wchar_t code) {
    return code != 0 && std::iswprint(static_cast<std::wint_t>(code)) != 0 &&
           !changesDirection(code);
}

int width(const Character& character) {
    const int columns = wcwidth(character.code);
    return columns < 0 ? 1 : columns;
}

/// The most characters, from one end, that fit into so many columns.
template <typename Iterator>
std::size_t countThatFits(Iterator first, Iterator last, int columns) {
    std::size_t count = 0;
    for (int used = 0; first != last; ++first, ++count) {
        used += width(*first);
        if (used > columns) break;
    }
    return count;
}

}  // namespace

std::string printable(std::string_view text) {
    const Utf8Scope scope;
    std::string result;
    result.reserve(text.size());
    for (const Character& character : charactersOf(text)) {
        result += isSafe(character.code) ? character.bytes : replacement;
    }
    return result;
}

int columnsOf(std::string_view text) {
    const Utf8Scope scope;
    int total = 0;
    for (const Character& character : charactersOf(text)) total += width(character);
    return total;
}

std::string fitted(std::string_view text, int columns) {
    if (columns <= 0) return {};
    if (columnsOf(text) <= columns) return std::string(text);
    const Utf8Scope scope;
    const auto all = charactersOf(text);
    // The end of a file's name tells more than its beginning.
    const int forTail = columns / 2;
    const int forHead = columns - 1 - forTail;
    const std::size_t head = countThatFits(all.begin(), all.end(), forHead);
    const std::size_t tail = countThatFits(all.rbegin(), all.rend(), forTail);

    std::string result;
    for (std::size_t i = 0; i < head; ++i) result += all[i].bytes;
    result += ellipsis;
    for (std::size_t i = all.size() - tail; i < all.size(); ++i) result += all[i].bytes;
    return result;
}

}  // namespace ornivo::cli
