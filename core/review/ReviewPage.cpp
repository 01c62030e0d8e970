#include "review/ReviewPage.h"

namespace ornivo::ReviewPage {

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
