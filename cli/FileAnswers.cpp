#include "cli/FileAnswers.h"

#include <algorithm>
#include <system_error>

#include "cli/EventJson.h"
#include "cli/TerminalText.h"
#include "engine/SortEngine.h"

namespace ornivo::cli {

std::optional<std::string> reasonToPassOver(const std::filesystem::path& file) {
    std::error_code failure;
    if (!std::filesystem::exists(file, failure)) return "There is no such file.";
    if (!std::filesystem::is_regular_file(file, failure)) return "It is not an ordinary file.";
    return std::nullopt;
}

void tellReason(Console& console, const std::string& file, const std::string& reason, bool json) {
    if (json) {
        console.write(jsonLine({{"path", file}, {"error", reason}}));
    } else {
        console.line(printable("✗ " + file + ": " + reason), Tone::error);
    }
}

unsigned workersFor(std::size_t files) {
    return static_cast<unsigned>(std::min<std::size_t>(SortEngine::defaultWorkers(), files));
}

}  // namespace ornivo::cli
