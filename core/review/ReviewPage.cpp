#include "review/ReviewPage.h"

#include <algorithm>
#include <cstddef>
#include <map>

#include "identification/BirdClassifierLabels.h"
#include "platform/DateText.h"
#include "platform/GroupedNumber.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "review/PageSource.h"

namespace ornivo::ReviewPage {
namespace {

constexpr std::string_view datePattern = "d MMMM yyyy, HH:mm";

/// Texts by the name that stands in double braces.
using Values = std::map<std::string_view, std::string_view>;

/// A character as it stands in a JSON string. The markup characters are escaped as well, so that no
/// text can end the script block it is in.
std::string jsonCharacter(char character) {
    switch (character) {
        case '"':
            return "\\\"";
        case '\\':
            return "\\\\";
        case '\t':
            return "\\t";
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '&':
            return "\\u0026";
        case '<':
            return "\\u003c";
        case '>':
            return "\\u003e";
        default:
            break;
    }
    const auto code = static_cast<unsigned char>(character);
    if (code >= 0x20) return {character};
    constexpr std::string_view digits = "0123456789abcdef";
    return {'\\', 'u', '0', '0', digits[code / 16], digits[code % 16]};
}

std::string jsonString(std::string_view text) {
    std::string json = "\"";
    for (const char character : wellFormed(text)) json += jsonCharacter(character);
    return json + '"';
}

std::string jsonGuess(const IdentifiedSpecies::Candidate& candidate) {
    const auto& [label, confidence] = candidate;
    return R"({"n":)" + jsonString(BirdClassifierLabels::displayName(label)) + R"(,"s":)" +
           jsonString(replacing(label, '_', ' ')) + R"(,"c":)" + fourPlaces(confidence) + "}";
}

std::string jsonRow(const Row& row) {
    std::string guesses;
    for (std::size_t rank = 0; rank < std::min(guessesPerRow, row.candidates.size()); ++rank) {
        if (rank > 0) guesses += ',';
        guesses += jsonGuess(row.candidates[rank]);
    }
    return R"({"f":)" + jsonString(row.fileName) + R"(,"k":[)" + guesses + "]}";
}

std::string jsonRows(const std::vector<Row>& rows) {
    std::string json = "[";
    for (const Row& row : rows) {
        if (json.size() > 1) json += ',';
        json += jsonRow(row);
    }
    return json + ']';
}

/// A path as it stands in an address: any of its bytes may come, also those that are no UTF-8.
std::string addressOf(std::string_view path) {
    constexpr std::string_view plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string address;
    for (const char each : path) {
        if (plain.find(each) != std::string_view::npos) {
            address += each;
            continue;
        }
        const auto code = static_cast<unsigned char>(each);
        address += {'%', digits[code / 16], digits[code % 16]};
    }
    return address;
}

/// The rows that have a stand-in, by their indexes, with its address.
std::string jsonStandIns(const std::vector<Row>& rows) {
    std::string json = "[";
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].standIn.empty()) continue;
        if (json.size() > 1) json += ',';
        json += "[" + std::to_string(i) + "," + jsonString(addressOf(rows[i].standIn)) + "]";
    }
    return json + ']';
}

/// The text with each `{{name}}` replaced. What is put in is not looked through again.
std::string filled(std::string_view text, const Values& values) {
    std::string result;
    for (;;) {
        const std::size_t start = text.find("{{");
        result += text.substr(0, start);
        if (start == std::string_view::npos) return result;
        const std::size_t end = text.find("}}", start);
        result += values.at(text.substr(start + 2, end - start - 2));
        text.remove_prefix(end + 2);
    }
}

}  // namespace

std::string html(const std::vector<Row>& rows, double gate, std::chrono::sys_seconds generated,
                 const std::string& locale, const std::string& timeZone) {
    const std::string count = std::to_string(rows.size());
    const std::string gatePercent = fixedText(gate * 100, 0);
    const std::string species = groupedNumber(BirdClassifierLabels::speciesCount(), locale);
    const std::string stamp = dateText(generated, std::string(datePattern), locale, timeZone);
    const std::string items = jsonRows(rows);
    const std::string standIns = jsonStandIns(rows);
    return filled(pageMarkup, {{"style", pageStyle},
                               {"script", pageScript},
                               {"rows", items},
                               {"standIns", standIns},
                               {"count", count},
                               {"plural", rows.size() == 1 ? "" : "s"},
                               {"gatePercent", gatePercent},
                               {"species", species},
                               {"stamp", stamp}});
}

std::string csvField(std::string_view text) {
    if (text.find_first_of(",\"\n") == std::string_view::npos) return std::string(text);
    std::string field = "\"";
    for (const char byte : text) {
        if (byte == '"') field += '"';
        field += byte;
    }
    return field + '"';
}

}  // namespace ornivo::ReviewPage
