#include <charconv>

#include "engine/SortEngine.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace ornivo {

std::int64_t SortEngine::sequenceNumber(std::string_view name, std::int64_t fallback) {
    const std::string stem = deletingPathExtension(name);
    const auto all = characters(stem);
    std::size_t start = stem.size();
    for (auto each = all.rbegin(); each != all.rend() && isNumber(*each); ++each) {
        start -= each->size();
    }
    std::int64_t number = 0;
    const char* const end = stem.data() + stem.size();
    const auto parsed = std::from_chars(stem.data() + start, end, number);
    return parsed.ec == std::errc() && parsed.ptr == end ? number : fallback;
}

}  // namespace ornivo
