#include "platform/Text.h"

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <stdexcept>

namespace ornivo {
namespace {

constexpr const char* rootLocale = "";
constexpr std::string_view replacementCharacter = "\uFFFD";

/// ICU fails only without memory or without its own data.
void require(UErrorCode status) {
    if (U_FAILURE(status)) throw std::runtime_error(u_errorName(status));
}

bool isASCII(std::string_view text) {
    return std::ranges::none_of(text, [](char c) { return (c & '\x80') != 0; });
}

char asciiLowercased(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string asciiLowercased(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](char c) { return asciiLowercased(c); });
    return result;
}

/// One code point and where it stands in its text. `value` is negative for bytes that are none.
struct CodePoint {
    UChar32 value;
    std::string_view bytes;
};

/// The code point at the beginning of a text that is not empty.
CodePoint firstCodePoint(std::string_view text) {
    const auto length = static_cast<std::int32_t>(text.size());
    std::int32_t index = 0;
    UChar32 value = 0;
    // ICU's own macro narrows on purpose.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
    U8_NEXT(text.data(), index, length, value);
#pragma GCC diagnostic pop
    return {value, text.substr(0, static_cast<std::size_t>(index))};
}

template <typename Visit>
void forEachCodePoint(std::string_view text, Visit visit) {
    while (!text.empty()) {
        const CodePoint point = firstCodePoint(text);
        visit(point);
        text.remove_prefix(point.bytes.size());
    }
}

bool isWhiteSpace(const CodePoint& point) {
    return point.value >= 0 && u_isUWhiteSpace(point.value);
}

bool has(const CodePoint& point, UProperty property) {
    return point.value >= 0 && u_hasBinaryProperty(point.value, property);
}

/// What `operation` writes into its sink.
template <typename Operation>
std::string collected(Operation operation) {
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    UErrorCode status = U_ZERO_ERROR;
    operation(sink, status);
    require(status);
    return result;
}

const icu::Normalizer2& composition() {
    UErrorCode status = U_ZERO_ERROR;
    const auto* normalizer = icu::Normalizer2::getNFCInstance(status);
    require(status);
    return *normalizer;
}

std::string decomposed(std::string_view text) {
    return collected([&](icu::ByteSink& sink, UErrorCode& status) {
        const auto* normalizer = icu::Normalizer2::getNFDInstance(status);
        require(status);
        normalizer->normalizeUTF8(0, text, sink, nullptr, status);
    });
}

std::string caseFolded(std::string_view text) {
    return collected([&](icu::ByteSink& sink, UErrorCode& status) {
        icu::CaseMap::utf8Fold(U_FOLD_CASE_DEFAULT, text, sink, nullptr, status);
    });
}

/// Marks on letters have a combining class; the vowel signs of Indic scripts, which are letters
/// in their own right, have none.
std::string withoutMarks(std::string_view text) {
    std::string result;
    forEachCodePoint(text, [&](const CodePoint& point) {
        if (point.value < 0 || u_getCombiningClass(point.value) == 0) result += point.bytes;
    });
    return result;
}

std::string titlecased(const CodePoint& letter) {
    return collected([&](icu::ByteSink& sink, UErrorCode& status) {
        icu::CaseMap::utf8ToTitle(rootLocale, U_TITLECASE_WHOLE_STRING, nullptr, letter.bytes, sink,
                                  nullptr, status);
    });
}

std::vector<std::string_view> asciiCharacters(std::string_view text) {
    std::vector<std::string_view> result;
    result.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = text.starts_with("\r\n") ? 2 : 1;
        result.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return result;
}

}  // namespace

std::string foldCaseAndDiacritics(std::string_view text) {
    if (isASCII(text)) return asciiLowercased(text);
    return canonicallyComposed(caseFolded(withoutMarks(decomposed(text))));
}

std::string trimmed(std::string_view text) {
    std::size_t position = 0;
    std::size_t begin = text.size();
    std::size_t end = 0;
    forEachCodePoint(text, [&](const CodePoint& point) {
        const std::size_t next = position + point.bytes.size();
        if (!isWhiteSpace(point)) {
            begin = std::min(begin, position);
            end = next;
        }
        position = next;
    });
    return end == 0 ? std::string() : std::string(text.substr(begin, end - begin));
}

std::string collapsingWhiteSpace(std::string_view text) {
    std::string result;
    bool inRun = false;
    forEachCodePoint(text, [&](const CodePoint& point) {
        const bool isSpace = isWhiteSpace(point);
        if (!isSpace) result += point.bytes;
        if (isSpace && !inRun) result += ' ';
        inRun = isSpace;
    });
    return result;
}

std::string lowercased(std::string_view text) {
    if (isASCII(text)) return asciiLowercased(text);
    return collected([&](icu::ByteSink& sink, UErrorCode& status) {
        icu::CaseMap::utf8ToLower(rootLocale, 0, text, sink, nullptr, status);
    });
}

std::string capitalized(std::string_view text) {
    std::string result;
    bool inWord = false;
    forEachCodePoint(lowercased(text), [&](const CodePoint& point) {
        result += inWord ? std::string(point.bytes) : titlecased(point);
        if (!has(point, UCHAR_CASE_IGNORABLE)) inWord = has(point, UCHAR_CASED);
    });
    return result;
}

std::string replacing(std::string_view text, char from, char to) {
    std::string result(text);
    std::ranges::replace(result, from, to);
    return result;
}

std::vector<std::string_view> characters(std::string_view text) {
    if (isASCII(text)) return asciiCharacters(text);

    UErrorCode status = U_ZERO_ERROR;
    UText bytes = UTEXT_INITIALIZER;
    utext_openUTF8(&bytes, text.data(), static_cast<std::int64_t>(text.size()), &status);
    const std::unique_ptr<icu::BreakIterator> boundaries(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    require(status);
    boundaries->setText(&bytes, status);
    require(status);

    std::vector<std::string_view> result;
    std::size_t begin = 0;
    for (auto end = boundaries->next(); end != icu::BreakIterator::DONE; end = boundaries->next()) {
        const auto boundary = static_cast<std::size_t>(end);
        result.push_back(text.substr(begin, boundary - begin));
        begin = boundary;
    }
    utext_close(&bytes);
    return result;
}

bool isLetter(std::string_view character) {
    return !character.empty() && has(firstCodePoint(character), UCHAR_ALPHABETIC);
}

bool isNumber(std::string_view character) {
    if (character.empty()) return false;
    const CodePoint point = firstCodePoint(character);
    return point.value >= 0 && u_getIntPropertyValue(point.value, UCHAR_NUMERIC_TYPE) != U_NT_NONE;
}

bool beginsWith(std::string_view text, std::string_view prefix) {
    if (!text.starts_with(prefix)) return false;
    if (prefix.empty() || prefix.size() == text.size()) return true;

    std::size_t boundary = 0;
    for (const std::string_view character : characters(text)) {
        boundary += character.size();
        if (boundary >= prefix.size()) break;
    }
    return boundary == prefix.size();
}

bool plainTextLess(std::string_view a, std::string_view b) {
    if (isASCII(a) && isASCII(b)) return a < b;
    return canonicallyComposed(a) < canonicallyComposed(b);
}

std::string canonicallyComposed(std::string_view text) {
    if (isASCII(text)) return std::string(text);
    return collected([&](icu::ByteSink& sink, UErrorCode& status) {
        composition().normalizeUTF8(0, text, sink, nullptr, status);
    });
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    if (isASCII(a) && isASCII(b)) {
        return std::ranges::equal(
            a, b, [](char x, char y) { return asciiLowercased(x) == asciiLowercased(y); });
    }
    return caselessForm(a) == caselessForm(b);
}

std::string caselessForm(std::string_view text) {
    if (isASCII(text)) return asciiLowercased(text);
    return decomposed(caseFolded(decomposed(text)));
}

std::string wellFormed(std::string_view text) {
    std::string result;
    forEachCodePoint(text, [&](const CodePoint& point) {
        result += point.value < 0 ? replacementCharacter : point.bytes;
    });
    return result;
}

}  // namespace ornivo
